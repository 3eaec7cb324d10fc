#include "print/RicercaPagina.h"

#include "core/values/Testo.h"
#include "print/Pittore.h"

namespace fenalto::print {
namespace {

/// Folds a text and tells for each unit of the result which unit of the text it comes from.
QString Piega(const QString& testo, std::vector<int>* origini) {
  QString piegato;
  piegato.reserve(testo.size());
  const auto accoda = [&](const QString& pezzo, int origine) {
    piegato += pezzo;
    if (origini != nullptr)
      origini->insert(origini->end(), static_cast<std::size_t>(pezzo.size()), origine);
  };
  for (int i = 0; i < testo.size(); ++i) {
    const char16_t unita = testo[i].unicode();
    if (unita < 0x80) {
      accoda(QString(unita >= 'A' && unita <= 'Z' ? QChar(unita + 32) : testo[i]), i);
      continue;
    }
    const int lunga = testo[i].isHighSurrogate() && i + 1 < testo.size() ? 2 : 1;
    const auto utf8 = testo.mid(i, lunga).toUtf8();
    accoda(QString::fromStdString(PerRicerca(utf8.toStdString())), i);
    i += lunga - 1;
  }
  return piegato;
}

}  // namespace

QString PerConfronto(const QString& testo) {
  return Piega(testo, nullptr);
}

std::vector<Segno> Trova(Pittore& pittore, const reports::Pagina& pagina, int totale,
                         const QString& cercato) {
  std::vector<Segno> segni;
  if (cercato.isEmpty()) return segni;
  int indice = -1;
  for (const auto& elemento : pagina.elementi) {
    ++indice;
    if (elemento.index() > 1) continue;
    const QString testo = pittore.Testo(elemento, totale);
    std::vector<int> origini;
    const QString piegato = Piega(testo, &origini);
    origini.push_back(static_cast<int>(testo.size()));
    for (auto posto = piegato.indexOf(cercato); posto >= 0;
         posto = piegato.indexOf(cercato, posto + cercato.size())) {
      const int da = origini[static_cast<std::size_t>(posto)];
      const int fine = origini[static_cast<std::size_t>(posto + cercato.size())];
      segni.push_back({indice, da, fine - da});
    }
  }
  return segni;
}

}  // namespace fenalto::print
