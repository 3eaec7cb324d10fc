#include "bench/MisureFinestre.h"

#include <QAbstractButton>
#include <QApplication>
#include <stdexcept>

#include "bench/Programma.h"

namespace fenalto::banco {
namespace {

constexpr int kVolte = 5;

}  // namespace

Rapporto MisuraSelettore(const OpzioniAmbiente& opzioni, const std::string& grande,
                         const std::string& piccola) {
  return MisuraApertura("selettore", opzioni, QStringLiteral("Movimenti"), grande, piccola);
}

void UsaMovimenti(const OpzioniAmbiente& opzioni, const std::string& ditta) {
  Programma programma(opzioni, ditta);
  auto& principale = programma.applicazione.Principale();
  auto* finestra = principale.ApriFunzione(QStringLiteral("Movimenti"));
  if (finestra == nullptr) throw std::runtime_error("Movimenti non si apre");
  for (const int numero : {5, 500, 50'000}) {
    finestra->ApriRecord({.codice = std::to_string(numero)});
    QApplication::processEvents();
    principale.grab();
    finestra->Abbandona();
  }
  for (const char* nome : {"Nuovo", "PNuovaRiga"}) {
    if (auto* pulsante = finestra->findChild<QAbstractButton*>(QLatin1String(nome))) {
      pulsante->click();
    }
    QApplication::processEvents();
  }
  principale.grab();
  finestra->Abbandona();
}

std::vector<Rapporto> MisureProcessi(const OpzioniAmbiente& opzioni, const std::string& grande) {
  const std::string cartella = opzioni.cartellaProgramma.string();
  std::vector<double> nostri;
  std::vector<double> vuoti;
  for (int i = 0; i < kVolte; ++i) {
    vuoti.push_back(SecondiDiProcesso({FENALTO_VUOTA}));
    nostri.push_back(SecondiDiProcesso(
        {FENALTO_PROGRAMMA, "--folder", cartella, "--ditta", grande, "--prova-avvio"}));
  }
  const double megabyte = MegabyteDiProcesso({"/proc/self/exe", "--usa-movimenti", grande});
  return {{"avvio", Mediana(nostri) / Mediana(vuoti), 2.5}, {"memoria", megabyte / 200.0, 1.0}};
}

}  // namespace fenalto::banco
