#include "bench/GeneraParti.h"

#include <array>
#include <cstdio>
#include <stdexcept>

#include "vat/postings/ArticoloFattura.h"

namespace fenalto::banco {
namespace {

constexpr int kFornitoriFatture = 2'000;
constexpr int kFattureInsieme = 5'000;  // in one transaction

std::string Numerato(const char* formato, int numero) {
  char testo[32];
  std::snprintf(testo, sizeof testo, formato, numero);
  return testo;
}

std::string Nome(Sequenza& sorte) {
  constexpr std::array kMestieri = {"Officina",   "Ferramenta", "Trasporti",  "Panificio",
                                    "Tipografia", "Vivai",      "Autofficina"};
  constexpr std::array kChi = {"Rossi",    "Bianchi",   "Colombo",  "Ferrari",
                               "Esposito", "Fumagalli", "dell'Oro", "Nicolò"};
  constexpr std::array kForme = {"srl", "snc", "spa", "di Mario", "e figli"};
  const auto uno = [&](const auto& voci) {
    return std::string(voci[static_cast<std::size_t>(sorte.Fino(static_cast<int>(voci.size())))]);
  };
  std::string nome = uno(kMestieri) + " ";
  nome += uno(kChi) + " ";
  return nome += uno(kForme);
}

void Parte(Archivio& tessarc, const char* tabella, const char* cfp, const std::string& codice,
           std::vector<Coppia> campi, const std::string& nome) {
  campi.emplace_back("Cod", codice);
  campi.emplace_back("ragsoc1", nome);
  tessarc.Inserisci(tabella, campi);
  tessarc.Inserisci("ContiClientiFornitori",
                    {{"Cod", codice}, {"CFP", cfp}, {"Descrizione", nome}});
}

void CreaPagamento(Archivio& tessarc) {
  tessarc.Inserisci("Pagamento", {{"Cod", kPagamentoDueRate},
                                  {"Descrizione", "30 e 60 giorni fine mese"},
                                  {"NuovaCodifica", true},
                                  {"AggiornaScad", true}});
  for (const int mesi : {1, 2}) {
    tessarc.Inserisci("Pagamento_r", {{"Cod", kPagamentoDueRate},
                                      {"Rata", Numerato("%02d", mesi)},
                                      {"PercImporto", Importo::DaUnita(50)},
                                      {"DopoMesi", mesi},
                                      {"FineMese", true},
                                      {"Tipo", "02"}});
  }
}

vat::RichiestaArticoloFattura Fattura(Sequenza& sorte, int numero, int quante) {
  vat::RichiestaArticoloFattura fattura;
  fattura.riva = kRegistroAcquisti;
  fattura.anno = kAnnoFatture;
  fattura.nProt = numero;
  fattura.dt = Data::DaGma(1, 1, kAnnoFatture)->PiuGiorni(numero * 365 / (quante + 1));
  fattura.dtFat = fattura.dt;
  fattura.nFat = std::to_string(1 + sorte.Fino(9'999));
  fattura.conto = Numerato("%05d", 1 + sorte.Fino(kFornitoriFatture));
  fattura.pagamento = kPagamentoDueRate;
  for (int i = 0; i < kRigheImponibile; ++i) {
    fattura.totali.push_back({Numerato("500.%03d", 1 + i), i % 2 == 0 ? "22" : "10",
                              Importo::DaDecimillesimi(100LL * (100 + sorte.Fino(200'000))),
                              Importo::DaUnita(i % 2 == 0 ? 22 : 10)});
  }
  return fattura;
}

}  // namespace

void GeneraParti(const OpzioniAmbiente& opzioni, const std::string& nome, int clienti) {
  FaiDitta(opzioni, nome, kAnnoFatture, 1, [&](Ambiente& ambiente) {
    Archivio& tessarc = ambiente.ArchivioDi("tessarc");
    Sequenza sorte(50'000);
    Transazione transazione(ambiente.Basi());
    for (int i = 1; i <= clienti; ++i) {
      Parte(tessarc, "Clienti", "C", Numerato("%05d", i),
            {{"Conto", "120.001"},
             {"indirizzo", "via Roma " + std::to_string(1 + sorte.Fino(200))},
             {"localita", "Lecco"},
             {"Prov", "LC"},
             {"telefono1", "0341 " + std::to_string(100'000 + sorte.Fino(900'000))},
             {"piva", Numerato("%011d", i)}},
            Nome(sorte));
    }
    transazione.Conferma();
  });
}

void GeneraFatture(const OpzioniAmbiente& opzioni, const std::string& nome, int fatture) {
  FaiDitta(opzioni, nome, kAnnoFatture, 1, [&](Ambiente& ambiente) {
    Archivio& tessarc = ambiente.ArchivioDi("tessarc");
    Sequenza sorte(100'000);
    {
      Transazione transazione(ambiente.Basi());
      CreaPagamento(tessarc);
      for (int i = 1; i <= kFornitoriFatture; ++i) {
        Parte(tessarc, "Fornitori", "F", Numerato("%05d", i), {{"Conto", "400.001"}}, Nome(sorte));
      }
      transazione.Conferma();
    }
    for (int fatte = 0; fatte < fatture;) {
      Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tutto);
      for (int i = 0; i < kFattureInsieme && fatte < fatture; ++i) {
        std::int64_t numDoc = 0;
        vat::LogContabile log;
        if (!vat::CreaArticoloFattura(ambiente, Fattura(sorte, ++fatte, fatture), numDoc, log)) {
          throw std::runtime_error(log.avvisi.empty() ? "fattura rifiutata" : log.avvisi.front());
        }
      }
      transazione.Conferma();
    }
  });
}

}  // namespace fenalto::banco
