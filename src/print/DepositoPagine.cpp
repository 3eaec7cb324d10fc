#include "print/DepositoPagine.h"

#include <QDataStream>
#include <QDir>
#include <QIODevice>

namespace fenalto::print {
namespace {

/// Pages are text: the quickest packing makes them some ten times smaller.
constexpr int kCompressione = 1;

QDataStream& operator<<(QDataStream& flusso, const std::string& testo) {
  return flusso << QByteArray::fromRawData(testo.data(), static_cast<qsizetype>(testo.size()));
}
QDataStream& operator>>(QDataStream& flusso, std::string& testo) {
  QByteArray byte;
  flusso >> byte;
  testo.assign(byte.constData(), static_cast<std::size_t>(byte.size()));
  return flusso;
}

// Most texts stand for nothing: then one byte tells it.
QDataStream& operator<<(QDataStream& flusso, const Rinvio& rinvio) {
  flusso << rinvio.Vuoto();
  if (rinvio.Vuoto()) return flusso;
  return flusso << rinvio.funzione << rinvio.codice << rinvio.anno << rinvio.classe
                << rinvio.scheda;
}
QDataStream& operator>>(QDataStream& flusso, Rinvio& rinvio) {
  bool vuoto = true;
  flusso >> vuoto;
  if (vuoto) return flusso;
  return flusso >> rinvio.funzione >> rinvio.codice >> rinvio.anno >> rinvio.classe >>
         rinvio.scheda;
}

QDataStream& operator<<(QDataStream& flusso, const reports::Scritta& uno) {
  return flusso << uno.x << uno.y << uno.larghezza << static_cast<qint8>(uno.allineamento)
                << uno.carattere.famiglia << uno.carattere.corpo << uno.carattere.grassetto
                << uno.carattere.corsivo << uno.testo << uno.rinvio << uno.numero;
}
QDataStream& operator>>(QDataStream& flusso, reports::Scritta& uno) {
  qint8 allineamento = 0;
  flusso >> uno.x >> uno.y >> uno.larghezza >> allineamento >> uno.carattere.famiglia >>
      uno.carattere.corpo >> uno.carattere.grassetto >> uno.carattere.corsivo >> uno.testo >>
      uno.rinvio >> uno.numero;
  uno.allineamento = static_cast<reports::Allineamento>(allineamento);
  return flusso;
}

QDataStream& operator<<(QDataStream& flusso, const reports::RigaFissa& uno) {
  return flusso << uno.x << uno.y << uno.passo << uno.grassetto << uno.testo << uno.rinvio;
}
QDataStream& operator>>(QDataStream& flusso, reports::RigaFissa& uno) {
  return flusso >> uno.x >> uno.y >> uno.passo >> uno.grassetto >> uno.testo >> uno.rinvio;
}

QDataStream& operator<<(QDataStream& flusso, const reports::Tratto& uno) {
  return flusso << uno.x1 << uno.y1 << uno.x2 << uno.y2 << uno.spessore;
}
QDataStream& operator>>(QDataStream& flusso, reports::Tratto& uno) {
  return flusso >> uno.x1 >> uno.y1 >> uno.x2 >> uno.y2 >> uno.spessore;
}

QDataStream& operator<<(QDataStream& flusso, const reports::Riquadro& uno) {
  return flusso << uno.x << uno.y << uno.larghezza << uno.altezza << uno.spessore << uno.grigio;
}
QDataStream& operator>>(QDataStream& flusso, reports::Riquadro& uno) {
  return flusso >> uno.x >> uno.y >> uno.larghezza >> uno.altezza >> uno.spessore >> uno.grigio;
}

QDataStream& operator<<(QDataStream& flusso, const reports::Immagine& uno) {
  return flusso << uno.x << uno.y << uno.larghezza << uno.altezza << uno.file;
}
QDataStream& operator>>(QDataStream& flusso, reports::Immagine& uno) {
  return flusso >> uno.x >> uno.y >> uno.larghezza >> uno.altezza >> uno.file;
}

template <typename Genere>
reports::Elemento Letto(QDataStream& flusso) {
  Genere uno;
  flusso >> uno;
  return uno;
}

reports::Elemento LeggiElemento(QDataStream& flusso) {
  qint8 genere = 0;
  flusso >> genere;
  switch (genere) {
    case 0:
      return Letto<reports::Scritta>(flusso);
    case 1:
      return Letto<reports::RigaFissa>(flusso);
    case 2:
      return Letto<reports::Tratto>(flusso);
    case 3:
      return Letto<reports::Riquadro>(flusso);
    default:
      return Letto<reports::Immagine>(flusso);
  }
}

}  // namespace

DepositoPagine::DepositoPagine(const QString& cartella)
    : file_((cartella.isEmpty() ? QDir::tempPath() : cartella) +
            QStringLiteral("/fenalto-pagine-XXXXXX")) {}

Esito<bool> DepositoPagine::Aggiungi(const reports::Pagina& pagina) {
  QByteArray byte;
  QDataStream flusso(&byte, QIODevice::WriteOnly);
  flusso << pagina.formato.larghezza << pagina.formato.altezza << pagina.formato.margine
         << pagina.numero << static_cast<qint32>(pagina.elementi.size());
  for (const auto& elemento : pagina.elementi) {
    flusso << static_cast<qint8>(elemento.index());
    std::visit([&](const auto& uno) { flusso << uno; }, elemento);
  }
  const QByteArray stretti = qCompress(byte, kCompressione);
  const bool scritti = (file_.isOpen() || file_.open()) && file_.seek(fine_) &&
                       file_.write(stretti) == stretti.size() && file_.flush();
  if (!scritti) {
    return Errore{"Non si possono tenere le pagine nella cartella dei file temporanei: " +
                  file_.errorString().toStdString() +
                  ".\nLiberare spazio sul disco e ripetere la stampa."};
  }
  posti_.push_back({fine_, static_cast<qint32>(stretti.size())});
  fine_ += stretti.size();
  return true;
}

reports::Pagina DepositoPagine::Leggi(int indice) {
  reports::Pagina pagina;
  if (indice < 0 || indice >= Pagine()) return pagina;
  const auto& posto = posti_[static_cast<std::size_t>(indice)];
  if (!file_.seek(posto.inizio)) return pagina;
  const QByteArray byte = qUncompress(file_.read(posto.lunghezza));
  QDataStream flusso(byte);
  qint32 elementi = 0;
  flusso >> pagina.formato.larghezza >> pagina.formato.altezza >> pagina.formato.margine >>
      pagina.numero >> elementi;
  pagina.elementi.reserve(static_cast<std::size_t>(std::max(0, elementi)));
  for (qint32 i = 0; i < elementi && flusso.status() == QDataStream::Ok; ++i) {
    pagina.elementi.push_back(LeggiElemento(flusso));
  }
  return pagina;
}

}  // namespace fenalto::print
