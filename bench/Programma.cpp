#include "bench/Programma.h"

#include <QApplication>
#include <stdexcept>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::banco {
namespace {

constexpr int kVolte = 9;

std::vector<double> Aperture(const OpzioniAmbiente& opzioni, const std::string& ditta,
                             const QString& finestra, const DopoApertura& dopo) {
  Programma programma(opzioni, ditta);
  ApriEGuarda(programma, finestra, dopo);  // fonts and styles are loaded once
  std::vector<double> secondi;
  for (int i = 0; i < kVolte; ++i) secondi.push_back(ApriEGuarda(programma, finestra, dopo));
  return secondi;
}

}  // namespace

Programma::Programma(const OpzioniAmbiente& opzioni, const std::string& ditta)
    : applicazione(opzioni, dialoghi, orologio, caso) {
  if (auto esito = applicazione.AvviaSu(ditta, 0); !esito) {
    throw std::runtime_error(esito.Errore().messaggio);
  }
  applicazione.Principale().show();
  QApplication::processEvents();
}

double ApriEGuarda(Programma& programma, const QString& finestra, const DopoApertura& dopo) {
  auto& principale = programma.applicazione.Principale();
  const double secondi = Secondi([&] {
    auto* aperta = principale.ApriFunzione(finestra);
    if (aperta == nullptr) throw std::runtime_error(finestra.toStdString() + " non si apre");
    if (dopo) dopo(*aperta);
    QApplication::processEvents();
    principale.grab();
  });
  principale.ChiudiTutto();
  QApplication::processEvents();
  return secondi;
}

Rapporto MisuraApertura(const std::string& nome, const OpzioniAmbiente& opzioni,
                        const QString& finestra, const std::string& grande,
                        const std::string& piccola, const DopoApertura& dopo) {
  constexpr double kLimite = 1.5;
  const double poco = Mediana(Aperture(opzioni, piccola, finestra, dopo));
  const double molto = Mediana(Aperture(opzioni, grande, finestra, dopo));
  return {nome, molto / poco, kLimite};
}

}  // namespace fenalto::banco
