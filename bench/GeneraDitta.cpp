#include "bench/GeneraDitta.h"

#include <cstdio>
#include <stdexcept>

#include "bench/DialoghiMuti.h"
#include "core/session/CreaDitta.h"
#include "core/values/Importo.h"

namespace fenalto::banco {
namespace {

std::string Numerato(const char* formato, int numero) {
  char testo[32];
  std::snprintf(testo, sizeof testo, formato, numero);
  return testo;
}

struct Parte {
  std::string cfp;
  std::string conto;
};

class Generatore {
 public:
  Generatore(Archivio& archivio, int registrazioni)
      : archivio_(archivio), registrazioni_(registrazioni) {}

  void Genera() {
    Anagrafiche();
    for (int i = 0; i < registrazioni_; ++i) Registrazione(i);
  }

 private:
  void Anagrafiche() {
    Rs esistenti = archivio_.Recordset("SELECT Cod FROM Conti WHERE CFP='P' ORDER BY Cod");
    for (; !esistenti.Eof(); esistenti.MoveNext()) conti_.push_back(esistenti.Fields(0).Testo());
    archivio_.Inserisci("Mastri",
                        {{"Cod", "995"}, {"Descrizione", "Mastro di prova"}, {"PatrEcon", "E"}});
    while (static_cast<int>(conti_.size()) < kConti) {
      const std::string codice = "995." + Numerato("%03d", static_cast<int>(conti_.size()));
      archivio_.Inserisci("Conti", {{"Cod", codice},
                                    {"Descrizione", "Conto di prova " + codice},
                                    {"CFP", "P"},
                                    {"PatrEcon", "E"}});
      archivio_.Inserisci(
          "ContiClientiFornitori",
          {{"Cod", codice}, {"CFP", "P"}, {"Descrizione", "Conto di prova " + codice}});
      conti_.push_back(codice);
    }
    Parti("Clienti", "C", "120.001", kClienti);
    Parti("Fornitori", "F", "400.001", kFornitori);
  }

  /// Parties of a summary account.
  void Parti(const char* tabella, const char* cfp, const char* conto, int quante) {
    for (int i = 1; i <= quante; ++i) {
      const std::string codice = Numerato("%05d", i);
      const std::string nome = std::string(tabella) + " numero " + std::to_string(i) + " srl";
      archivio_.Inserisci(tabella, {{"Cod", codice}, {"RagSoc1", nome}, {"Conto", conto}});
      archivio_.Inserisci("ContiClientiFornitori",
                          {{"Cod", codice}, {"CFP", cfp}, {"Descrizione", nome}});
    }
  }

  Parte Estrai() {
    const int caso = sorte_.Fino(10);
    if (caso < 2) return {"C", Numerato("%05d", 1 + sorte_.Fino(kClienti))};
    if (caso < 3) return {"F", Numerato("%05d", 1 + sorte_.Fino(kFornitori))};
    return {"P", conti_[static_cast<std::size_t>(sorte_.Fino(static_cast<int>(conti_.size())))]};
  }

  void Registrazione(int indice) {
    const int perAnno = registrazioni_ / kAnni + 1;
    const int anno = kPrimoAnno + indice / perAnno;
    const std::int64_t numero = indice % perAnno + 1;
    const Data data = Data::DaGma(1, 1, anno)->PiuGiorni((indice % perAnno) * 364 / perAnno);
    const bool apertura = indice % perAnno < 20;
    const std::string causale = apertura ? "APE" : "0" + Numerato("%02d", sorte_.Fino(30));
    const Importo importo = Importo::DaDecimillesimi(100LL * (1 + sorte_.Fino(5'000'000)));
    const Parte dare = Estrai();
    const Parte avere = Estrai();
    const std::int64_t id = archivio_.Inserisci("Articoli", {{"Anno", anno},
                                                             {"NumDoc", numero},
                                                             {"Dt", data},
                                                             {"CFP", dare.cfp},
                                                             {"Conto", dare.conto},
                                                             {"CfpA", avere.cfp},
                                                             {"ContoA", avere.conto}});
    (void)id;
    const auto riga = [&](int posi, const Parte& parte, const Parte& controparte, Importo nelDare,
                          Importo nellAvere) {
      archivio_.Inserisci("Movimenti", {{"Anno", anno},
                                        {"NumDoc", numero},
                                        {"Posi", posi},
                                        {"Causale", causale},
                                        {"Descrizione", "Registrazione di prova"},
                                        {"CFP", parte.cfp},
                                        {"Conto", parte.conto},
                                        {"ImpoDare", nelDare},
                                        {"ImpoAvere", nellAvere},
                                        {"CFPControp", controparte.cfp},
                                        {"ContoControp", controparte.conto}});
    };
    riga(100, dare, avere, importo, {});
    if (indice % 2 == 0) {
      riga(200, avere, dare, {}, importo);
      return;
    }
    const Importo quota = Importo::DaDecimillesimi(importo.Decimillesimi() / 200 * 100);
    riga(200, avere, dare, {}, quota);
    riga(300, Estrai(), dare, {}, importo - quota);
  }

  Archivio& archivio_;
  int registrazioni_;
  std::vector<std::string> conti_;
  Sequenza sorte_{20'241'124};
};

}  // namespace

void FaiDitta(const OpzioniAmbiente& opzioni, const std::string& nome, int primoAnno, int anni,
              const std::function<void(Ambiente&)>& riempi) {
  const auto fatta = opzioni.cartellaProgramma / (nome + ".fatta");
  if (std::filesystem::exists(fatta)) return;
  std::filesystem::remove_all(opzioni.cartellaProgramma / nome);
  std::filesystem::remove(opzioni.cartellaProgramma / (nome + ".ini"));
  std::filesystem::create_directories(opzioni.cartellaProgramma);
  std::vector<AnnoDitta> suoi;
  for (int i = 0; i < anni; ++i) suoi.push_back({primoAnno + i, true, false});
  if (auto esito = CreaDittaDaModello(opzioni, nome, suoi, true); !esito) {
    throw std::runtime_error(esito.Errore().messaggio);
  }
  DialoghiMuti dialoghi;
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  if (auto esito = ambiente.ApriDitta(nome); !esito) {
    throw std::runtime_error(esito.Errore().messaggio);
  }
  riempi(ambiente);
  ambiente.ChiudiDitta();
  std::FILE* segno = std::fopen(fatta.c_str(), "w");
  if (segno != nullptr) std::fclose(segno);
}

void GeneraDitta(const OpzioniAmbiente& opzioni, const std::string& nome, int registrazioni) {
  FaiDitta(opzioni, nome, kPrimoAnno, kAnni, [&](Ambiente& ambiente) {
    Transazione transazione(ambiente.Basi());
    Generatore(ambiente.ArchivioDi("tessarc"), registrazioni).Genera();
    transazione.Conferma();
  });
}

}  // namespace fenalto::banco
