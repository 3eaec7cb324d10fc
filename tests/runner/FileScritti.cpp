#include "runner/FileScritti.h"

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QStringDecoder>
#include <QStringList>
#include <QXmlStreamReader>

namespace fenalto::copione {
namespace {

constexpr int kAttesa = 60'000;  // ms that a tool may take

Errore Guasto(const QString& motivo) {
  return {motivo.toStdString()};
}

Esito<QByteArray> Lancia(const QString& programma, const QStringList& argomenti) {
  QProcess processo;
  processo.start(programma, argomenti);
  if (!processo.waitForFinished(kAttesa) || processo.exitStatus() != QProcess::NormalExit) {
    return Guasto(QStringLiteral("%1 does not run").arg(programma));
  }
  if (processo.exitCode() != 0) {
    const QString detto = QString::fromUtf8(processo.readAllStandardError()).trimmed();
    return Guasto(QStringLiteral("%1: %2").arg(programma, detto));
  }
  return processo.readAllStandardOutput();
}

/// The texts of the elements `si`, in order; formatting runs are joined.
QStringList StringheDi(const QByteArray& xml) {
  QStringList stringhe;
  QXmlStreamReader lettore(xml);
  QString una;
  bool fonetica = false;
  while (!lettore.atEnd()) {
    lettore.readNext();
    const auto nome = lettore.name();
    if (lettore.isStartElement() && nome == QLatin1String("si")) una.clear();
    if (nome == QLatin1String("rPh")) fonetica = lettore.isStartElement();
    if (lettore.isStartElement() && nome == QLatin1String("t") && !fonetica) {
      una += lettore.readElementText();
    }
    if (lettore.isEndElement() && nome == QLatin1String("si")) stringhe << una;
  }
  return stringhe;
}

/// The values of a sheet's cells; an index into the shared strings gives the string.
QStringList CelleDi(const QByteArray& xml, const QStringList& stringhe) {
  QStringList celle;
  QXmlStreamReader lettore(xml);
  QString tipo;
  while (!lettore.atEnd()) {
    lettore.readNext();
    if (!lettore.isStartElement()) continue;
    const auto nome = lettore.name();
    if (nome == QLatin1String("c")) {
      tipo = lettore.attributes().value(QLatin1String("t")).toString();
    } else if (nome == QLatin1String("v") || nome == QLatin1String("t")) {
      const QString valore = lettore.readElementText();
      celle << (tipo == QLatin1String("s") ? stringhe.value(valore.toInt()) : valore);
    }
  }
  return celle;
}

Esito<QString> LeggiFoglio(const QString& file) {
  auto indice = Lancia(QStringLiteral("unzip"), {QStringLiteral("-Z1"), file});
  if (!indice) return indice.Errore();
  const auto parti = QString::fromUtf8(indice.Valore()).split(QLatin1Char('\n'));
  QStringList stringhe;
  const QString comuni = QStringLiteral("xl/sharedStrings.xml");
  if (parti.contains(comuni)) {
    auto xml = Lancia(QStringLiteral("unzip"), {QStringLiteral("-p"), file, comuni});
    if (!xml) return xml.Errore();
    stringhe = StringheDi(xml.Valore());
  }
  QStringList testi = stringhe;
  for (const auto& parte : parti) {
    if (!parte.startsWith(QLatin1String("xl/worksheets/")) ||
        !parte.endsWith(QLatin1String(".xml"))) {
      continue;
    }
    auto xml = Lancia(QStringLiteral("unzip"), {QStringLiteral("-p"), file, parte});
    if (!xml) return xml.Errore();
    testi << CelleDi(xml.Valore(), stringhe);
  }
  return testi.join(QLatin1Char('\n'));
}

}  // namespace

Esito<QByteArray> LeggiByte(const std::filesystem::path& file) {
  const QString nome = QString::fromStdString(file.string());
  QFile aperto(nome);
  if (!aperto.open(QIODevice::ReadOnly)) {
    return Guasto(QStringLiteral("there is no file %1").arg(nome));
  }
  return aperto.readAll();
}

Esito<QString> LeggiTestoDi(const std::filesystem::path& file) {
  auto byte = LeggiByte(file);
  if (!byte) return byte.Errore();
  const auto& contenuto = byte.Valore();
  const QString nome = QString::fromStdString(file.string());
  if (contenuto.startsWith("%PDF")) {
    auto testo =
        Lancia(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), QStringLiteral("-enc"),
                                             QStringLiteral("UTF-8"), nome, QStringLiteral("-")});
    if (!testo) return testo.Errore();
    return QString::fromUtf8(testo.Valore());
  }
  if (contenuto.startsWith("PK\x03\x04")) return LeggiFoglio(nome);
  // At once, so that a sequence cut off at the end counts as broken.
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString testo = utf8(contenuto);
  if (utf8.hasError()) testo = QString::fromLatin1(contenuto);
  return testo;
}

}  // namespace fenalto::copione
