#include "bench/GeneraScadenze.h"

#include <cstdio>
#include <stdexcept>

#include "bench/DialoghiMuti.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::banco {
namespace {

constexpr int kRegistrazioni = 40'000;
constexpr int kAperte = kAperteClienti + kAperteFornitori;
constexpr int kAnno = kPrimoAnno + kAnni - 1;

std::string Codice(int numero) {
  char testo[32];
  std::snprintf(testo, sizeof testo, "%05d", numero);
  return testo;
}

class Generatore {
 public:
  explicit Generatore(Archivio& scadenzario) : scadenzario_(scadenzario) {}

  void Genera() {
    for (int i = 1; i <= kQuanteScadenze - kAperte; ++i) Pagata(i);
    for (int i = 0; i < kAperteClienti; ++i)
      Aperta("C", i, i < kRicevute ? duedates::kTipoRiba : "02");
    for (int i = 0; i < kAperteFornitori; ++i) Aperta("F", i, "02");
  }

 private:
  void Pagata(int i) {
    const bool cliente = sorte_.Fino(3) < 2;
    const Data giorno = Data::DaGma(31, 1, kPrimoAnno)->PiuGiorni(i * 900 / kQuanteScadenze);
    const Importo importo = Estrai();
    Scrivi(cliente ? "C" : "F", giorno, "02", duedates::kStatoPagata, importo, importo);
  }
  void Aperta(const char* cfp, int i, const char* tipo) {
    const Data giorno = Data::DaGma(31, 10, kAnno)->PiuGiorni(i * 120 / kAperteClienti);
    const bool parziale = i >= kRicevute && i % 20 == 0;
    const Importo importo = Estrai();
    Scrivi(cfp, giorno, tipo, parziale ? duedates::kStatoParziale : duedates::kStatoScritta,
           importo,
           parziale ? Importo::DaDecimillesimi(importo.Decimillesimi() / 200 * 100) : Importo());
  }
  Importo Estrai() { return Importo::DaDecimillesimi(100LL * (1'000 + sorte_.Fino(500'000))); }

  void Scrivi(const std::string& cfp, Data giorno, const char* tipo, const char* stato,
              Importo importo, Importo pagato) {
    const int fattura = 1 + numero_ / 2;
    std::vector<Coppia> campi = {
        {"Numero", ++numero_},
        {"CFP", cfp},
        {"Conto", Codice(1 + sorte_.Fino(cfp == "C" ? kClienti : kFornitori))},
        {"Dt", giorno},
        {"Tipo", tipo},
        {"Stato", stato},
        {"Anno", giorno.Anno()},
        {"Articolo", fattura},
        {"Riva", cfp == "C" ? "1" : "3"},
        {"NProt", fattura},
        {"NFat", fattura},
        {"DtFat", giorno.PiuGiorni(-60)},
        {"Programma", "fatture"},
        {"Descrizione", "FATT." + std::to_string(fattura) + " Del " + giorno.Testo()},
        {"Pagamento", "XDUE"}};
    for (const auto& altri : {duedates::CampiImporto(importo), duedates::CampiPagato(pagato)}) {
      campi.insert(campi.end(), altri.begin(), altri.end());
    }
    scadenzario_.Inserisci("Scadenze", campi);
  }

  Archivio& scadenzario_;
  Sequenza sorte_{500'000};
  int numero_ = 0;
};

/// What the bank's file says of a customer.
void CompletaClienti(Archivio& tessarc) {
  tessarc.Esegui(
      "update Clienti set indirizzo='via Roma 12',cap='23900',localita='Lecco',prov='LC',"
      "piva='01234567890',ABI='03069',CAB='22900',banca='Banca del debitore',agenzia='Lecco'");
}

}  // namespace

void GeneraScadenze(const OpzioniAmbiente& opzioni) {
  GeneraDitta(opzioni, kScadenzeMolte, kRegistrazioni);
  DialoghiMuti dialoghi;
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  if (auto esito = ambiente.ApriDitta(kScadenzeMolte); !esito) {
    throw std::runtime_error(esito.Errore().messaggio);
  }
  Archivio& scadenzario = ambiente.ArchivioDi("scadenzario");
  if (scadenzario.Singolo("select Count(*) from Scadenze").Intero() == kQuanteScadenze) return;
  Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tutto);
  scadenzario.Esegui("delete * from Scadenze");
  scadenzario.Esegui("delete * from Banche");
  Generatore(scadenzario).Genera();
  scadenzario.Inserisci("Banche", {{"Cod", kBancaRicevute},
                                   {"Nome", "Banca di presentazione"},
                                   {"Abi", "03069"},
                                   {"CAB", "11700"},
                                   {"ContoCorrente", "000000123456"},
                                   {"CodSia", "A1B2C"}});
  CompletaClienti(ambiente.ArchivioDi("tessarc"));
  transazione.Conferma();
}

}  // namespace fenalto::banco
