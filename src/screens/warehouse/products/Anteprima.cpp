#include "screens/warehouse/products/Anteprima.h"

#include <QImageReader>
#include <QPainter>
#include <QStyleOption>

#include "screens/common/fields/Qs.h"

namespace fenalto::screens {
namespace {

/// Greatest side that is kept: a photograph is read smaller than it is.
constexpr int kLato = 1'000;

QPixmap LeggiImmagine(const std::filesystem::path& file) {
  QImageReader lettore(Qs(file.string()));
  lettore.setAutoTransform(true);
  lettore.setDecideFormatFromContent(true);
  if (const QSize misura = lettore.size(); misura.width() > kLato || misura.height() > kLato) {
    lettore.setScaledSize(misura.scaled(kLato, kLato, Qt::KeepAspectRatio));
  }
  return QPixmap::fromImage(lettore.read());
}

}  // namespace

Anteprima::Anteprima(const QString& nome, QWidget* genitore) : QWidget(genitore) {
  setObjectName(nome);
  setAccessibleName(tr("Immagine del prodotto"));
}

void Anteprima::Mostra(const std::filesystem::path& file, const QString& senza) {
  if (file.empty()) {
    immagine_ = {};
    testo_ = senza;
  } else if (file != file_) {
    immagine_ = LeggiImmagine(file);
    testo_ =
        immagine_.isNull()
            ? tr("%1\nnon è un'immagine che si possa mostrare").arg(Qs(file.filename().string()))
            : QString();
  }
  file_ = file;
  setAccessibleDescription(testo_);
  update();
}

void Anteprima::paintEvent(QPaintEvent* /*evento*/) {
  QPainter pittore(this);
  pittore.setPen(palette().color(QPalette::Mid));
  pittore.drawRect(rect().adjusted(0, 0, -1, -1));
  const QRect dentro = rect().adjusted(4, 4, -4, -4);
  if (immagine_.isNull()) {
    pittore.setPen(palette().color(QPalette::PlaceholderText));
    pittore.drawText(dentro, Qt::AlignCenter | Qt::TextWordWrap, testo_);
    return;
  }
  const QSize misura =
      immagine_.size().boundedTo(immagine_.size().scaled(dentro.size(), Qt::KeepAspectRatio));
  QRect dove(QPoint(), misura);
  dove.moveCenter(dentro.center());
  pittore.setRenderHint(QPainter::SmoothPixmapTransform);
  pittore.drawPixmap(dove, immagine_);
}

}  // namespace fenalto::screens
