#include "screens/documents/types/AnteprimaImmagine.h"

#include <QFileInfo>
#include <QImageReader>

#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

constexpr int kAltezza = 90;
constexpr int kLarghezza = 480;

}  // namespace

AnteprimaImmagine::AnteprimaImmagine(const QString& nome) {
  setObjectName(nome);
  setTextFormat(Qt::PlainText);
  setForegroundRole(QPalette::PlaceholderText);
  hide();
}

void AnteprimaImmagine::Mostra(const std::filesystem::path& file) {
  if (file == mostrata_) return;
  mostrata_ = file;
  setVisible(!file.empty());
  if (file.empty()) return clear();
  const QString nome = QString::fromStdString(file.string());
  if (!QFileInfo(nome).isFile()) return setText(tr("il file %1 non c'è").arg(nome));
  // Read at the size shown: a photograph of many megapixels costs no more than a logo.
  QImageReader lettore(nome);
  lettore.setAutoTransform(true);
  const QSize intera = lettore.size();
  const QSize posto(Cresciuta(kLarghezza), Cresciuta(kAltezza));
  if (intera.isValid() && (intera.width() > posto.width() || intera.height() > posto.height())) {
    lettore.setScaledSize(intera.scaled(posto, Qt::KeepAspectRatio));
  }
  const QImage immagine = lettore.read();
  if (immagine.isNull()) return setText(tr("il file %1 non è un'immagine").arg(nome));
  setPixmap(QPixmap::fromImage(immagine));
}

}  // namespace fenalto::screens
