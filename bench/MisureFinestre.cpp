#include "bench/MisureFinestre.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <stdexcept>

#include "bench/DialoghiMuti.h"
#include "screens/main/Applicazione.h"

namespace fenalto::banco {
namespace {

constexpr int kVolte = 5;

/// The program on a company, with its main window shown.
struct Programma {
  Programma(const OpzioniAmbiente& opzioni, const std::string& ditta)
      : applicazione(opzioni, dialoghi, orologio, caso) {
    if (auto esito = applicazione.AvviaSu(ditta, 0); !esito) {
      throw std::runtime_error(esito.Errore().messaggio);
    }
    applicazione.Principale().show();
    QApplication::processEvents();
  }
  DialoghiMuti dialoghi;
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Applicazione applicazione;
};

double ApriMovimenti(Programma& programma) {
  auto& principale = programma.applicazione.Principale();
  const double secondi = Secondi([&] {
    if (principale.ApriFunzione(QStringLiteral("Movimenti")) == nullptr) {
      throw std::runtime_error("Movimenti non si apre");
    }
    QApplication::processEvents();
    principale.grab();
  });
  principale.ChiudiTutto();
  QApplication::processEvents();
  return secondi;
}

}  // namespace

Rapporto MisuraSelettore(const OpzioniAmbiente& opzioni, const std::string& grande,
                         const std::string& piccola) {
  std::vector<double> grandi;
  std::vector<double> piccole;
  {
    Programma programma(opzioni, piccola);
    ApriMovimenti(programma);  // fonts and styles are loaded once
    for (int i = 0; i < kVolte; ++i) piccole.push_back(ApriMovimenti(programma));
  }
  Programma programma(opzioni, grande);
  ApriMovimenti(programma);
  for (int i = 0; i < kVolte; ++i) grandi.push_back(ApriMovimenti(programma));
  return {"selettore", Mediana(grandi) / Mediana(piccole), 1.5};
}

void UsaMovimenti(const OpzioniAmbiente& opzioni, const std::string& ditta) {
  Programma programma(opzioni, ditta);
  auto& principale = programma.applicazione.Principale();
  auto* finestra = principale.ApriFunzione(QStringLiteral("Movimenti"));
  if (finestra == nullptr) throw std::runtime_error("Movimenti non si apre");
  for (const int numero : {5, 500, 50'000}) {
    finestra->ApriCodice(QString::number(numero));
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
