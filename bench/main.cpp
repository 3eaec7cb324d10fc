// Benchmarks: a line NAME RATIO LIMIT for each measured ratio, exit status 0 when none is over its
// limit. Generated companies are made at the first run and kept in the build folder.
//
//   fenalto-bench [NAME ...]     only the ratios whose name is given

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <algorithm>
#include <cstdio>
#include <exception>

#include "bench/DialoghiMuti.h"
#include "bench/GeneraDitta.h"
#include "bench/MisuraCerca.h"
#include "bench/MisureArchivi.h"
#include "bench/MisureArchivio.h"
#include "bench/MisureCespiti.h"
#include "bench/MisureChiusure.h"
#include "bench/MisureDocumenti.h"
#include "bench/MisureFatture.h"
#include "bench/MisureFinestre.h"
#include "bench/MisureImpostazioni.h"
#include "bench/MisureMagazzino.h"
#include "bench/MisureProdotti.h"
#include "bench/MisureRapporti.h"
#include "bench/MisureRegistro.h"
#include "bench/MisureScadenze.h"
#include "screens/main/Applicazione.h"

namespace {

using fenalto::banco::Rapporto;

constexpr const char* kGrande = "Grande";
constexpr const char* kDecima = "Decima";
constexpr const char* kPiccola = "Piccola";
constexpr int kRegistrazioni = 400'000;
constexpr int kPoche = 4'000;

std::vector<Rapporto> Misura(const fenalto::OpzioniAmbiente& opzioni,
                             const fenalto::banco::Nomi& nomi) {
  std::vector<Rapporto> rapporti;
  const auto aggiungi = [&](std::vector<Rapporto> altri) {
    for (auto& rapporto : altri) rapporti.push_back(std::move(rapporto));
  };
  // These make what they need.
  if (fenalto::banco::Chiesto(nomi, "impostazioni")) {
    rapporti.push_back(fenalto::banco::MisuraImpostazioni(opzioni));
  }
  if (fenalto::banco::Chiesto(nomi, "cerca")) rapporti.push_back(fenalto::banco::MisuraCerca());
  aggiungi(fenalto::banco::MisureArchivi(opzioni, nomi));
  aggiungi(fenalto::banco::MisureCespiti(opzioni, nomi));
  aggiungi(fenalto::banco::MisureChiusure(opzioni, nomi));
  aggiungi(fenalto::banco::MisureDocumenti(opzioni, nomi));
  aggiungi(fenalto::banco::MisureFatture(opzioni, nomi));
  aggiungi(fenalto::banco::MisureMagazzino(opzioni, nomi));
  aggiungi(fenalto::banco::MisureProdotti(opzioni, nomi));
  aggiungi(fenalto::banco::MisureRegistro(opzioni, nomi));
  aggiungi(fenalto::banco::MisureScadenze(opzioni, nomi));
  if (!nomi.empty() && rapporti.size() == nomi.size()) return rapporti;
  const auto nuda = opzioni.cartellaProgramma / "nuda.db";
  std::printf("# dati in %s\n", opzioni.cartellaProgramma.c_str());
  fenalto::banco::GeneraDitta(opzioni, kPiccola, kPoche);
  fenalto::banco::GeneraDitta(opzioni, kGrande, kRegistrazioni);
  fenalto::banco::GeneraNuda(opzioni.cartellaProgramma / kGrande / "Cont32.mdb", nuda);
  {
    fenalto::banco::DialoghiMuti dialoghi;
    fenalto::OrologioDiSistema orologio;
    fenalto::CasoDiSistema caso;
    fenalto::Ambiente ambiente(opzioni, dialoghi, orologio, caso);
    if (auto esito = ambiente.ApriDitta(kGrande); !esito) {
      throw std::runtime_error(esito.Errore().messaggio);
    }
    aggiungi(fenalto::banco::MisureArchivio(ambiente, nuda, nomi));
    aggiungi(fenalto::banco::MisureRapporti(ambiente, dialoghi, nuda, nomi));
  }
  if (fenalto::banco::Chiesto(nomi, "giornale-memoria")) {
    fenalto::banco::GeneraDitta(opzioni, kDecima, kRegistrazioni / 10);
    rapporti.push_back(fenalto::banco::MisuraMemoriaGiornale(opzioni, kGrande, kDecima));
  }
  if (fenalto::banco::Chiesto(nomi, "selettore")) {
    rapporti.push_back(fenalto::banco::MisuraSelettore(opzioni, kGrande, kPiccola));
  }
  if (fenalto::banco::Chiesto(nomi, "avvio") || fenalto::banco::Chiesto(nomi, "memoria")) {
    aggiungi(fenalto::banco::MisureProcessi(opzioni, kGrande));
  }
  return rapporti;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication applicazione(argc, argv);
  fenalto::OpzioniAmbiente opzioni;
  opzioni.cartellaProgramma = FENALTO_BANCO;
  opzioni.cartellaDati = FENALTO_DATA;
  opzioni.stazione = "banco";
  opzioni.copie = false;
  fenalto::screens::Applicazione::Prepara(opzioni.cartellaDati);
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                     QString::fromStdString((opzioni.cartellaProgramma / "impostazioni").string()));
  try {
    const QStringList argomenti = QApplication::arguments().mid(1);
    if (argomenti.size() == 2 && argomenti[0] == QLatin1String("--usa-movimenti")) {
      fenalto::banco::UsaMovimenti(opzioni, argomenti[1].toStdString());
      return 0;
    }
    if (argomenti.size() == 3 && argomenti[0] == QLatin1String("--giornale-pdf")) {
      fenalto::banco::StampaGiornali(opzioni, argomenti[1].toStdString(),
                                     argomenti[2].toStdString());
      return 0;
    }
    if (argomenti.size() == 3 && argomenti[0] == QLatin1String("--registro-iva")) {
      fenalto::banco::StampaRegistri(opzioni, argomenti[1].toStdString(),
                                     argomenti[2].toStdString());
      return 0;
    }
    if (argomenti.size() == 3 && argomenti[0] == QLatin1String("--situazione-magazzino")) {
      fenalto::banco::StampaSituazione(opzioni, argomenti[1].toStdString(),
                                       argomenti[2].toStdString());
      return 0;
    }
    bool entro = true;
    fenalto::banco::Nomi nomi;
    for (const auto& argomento : argomenti) nomi.push_back(argomento.toStdString());
    for (const auto& rapporto : Misura(opzioni, nomi)) {
      std::printf("%s %.2f %.2f\n", rapporto.nome.c_str(), rapporto.valore, rapporto.limite);
      entro = entro && rapporto.valore <= rapporto.limite;
    }
    return entro ? 0 : 1;
  } catch (const std::exception& errore) {
    std::fprintf(stderr, "fenalto-bench: %s\n", errore.what());
    return 2;
  }
}
