#include "bench/MisureArchivio.h"

#include <stdexcept>
#include <string>

#include "bench/GeneraDitta.h"
#include "bench/Nuda.h"
#include "ledger/accounts/SaldoConto.h"
#include "ledger/registrations/Primanota.h"

namespace fenalto::banco {
namespace {

constexpr int kConferme = 15;  // confirmations in one run
constexpr int kCerche = 100'000;
constexpr int kLetture = 20'000;
constexpr int kSaldi = 20;

// Keeps a result from being computed for nothing.
volatile std::int64_t ultimo = 0;

void PreparaRegistrazione(ledger::Primanota& primanota) {
  primanota.Nuovo();
  const struct {
    const char* conto;
    int dare;
    int avere;
  } righe[] = {{"100.010", 100, 0}, {"170.001", 0, 18}, {"700.010", 0, 82}};
  for (const auto& riga : righe) {
    primanota.PNuovaRiga();
    auto& scheda = primanota.Riga();
    scheda.Scrivi("Causale", "037");
    scheda.Scrivi("Descrizione", "incasso di prova");
    scheda.Scrivi("Conto", riga.conto);
    scheda.Scrivi("ImpoDare", Importo::DaUnita(riga.dare));
    scheda.Scrivi("ImpoAvere", Importo::DaUnita(riga.avere));
    if (!primanota.ConfermaRiga()) throw std::runtime_error("riga rifiutata");
  }
}

class ConfermaNuda {
 public:
  explicit ConfermaNuda(Nuda& nuda)
      : nuda_(nuda),
        riga_(
            nuda.Prepara("INSERT INTO Movimenti VALUES (NULL, 2024, ?1, ?2, '037', "
                         "'incasso di prova', 'P', ?3, ?4, ?5, 'P', '100.010', 0, 0, '', 0, 0, 0, "
                         "'', '')")),
        testa_(nuda.Prepara("INSERT INTO Articoli VALUES (NULL, 2024, ?1, 45000, 'P', '100.010', "
                            "'', 'DIVERSI', 0, 0, '', '', 0)")),
        massimo_(nuda.Prepara("SELECT MAX(NumDoc) FROM Articoli WHERE Anno=2024")) {}

  void Conferma() {
    nuda_.Esegui("BEGIN IMMEDIATE");
    sqlite3_step(massimo_);
    const std::int64_t numero = sqlite3_column_int64(massimo_, 0) + 1;
    sqlite3_reset(massimo_);
    Riga(numero, 100, "100.010", 1'000'000, 0);
    Riga(numero, 200, "170.001", 0, 180'000);
    Riga(numero, 300, "700.010", 0, 820'000);
    sqlite3_bind_int64(testa_, 1, numero);
    sqlite3_step(testa_);
    sqlite3_reset(testa_);
    nuda_.Esegui("COMMIT");
  }

 private:
  void Riga(std::int64_t numero, int posi, const char* conto, std::int64_t dare,
            std::int64_t avere) {
    sqlite3_bind_int64(riga_, 1, numero);
    sqlite3_bind_int(riga_, 2, posi);
    Lega(riga_, 3, conto);
    sqlite3_bind_int64(riga_, 4, dare);
    sqlite3_bind_int64(riga_, 5, avere);
    sqlite3_step(riga_);
    sqlite3_reset(riga_);
  }
  Nuda& nuda_;
  sqlite3_stmt* riga_;
  sqlite3_stmt* testa_;
  sqlite3_stmt* massimo_;
};

Rapporto MisuraConferma(Ambiente& ambiente, Nuda& nuda) {
  ConfermaNuda bara(nuda);
  ledger::Primanota primanota(ambiente);
  std::vector<double> nostre;
  std::vector<double> nude;
  const auto prima = ambiente.Max("NumDoc", "Articoli", {{"Anno", ambiente.Anno()}},
                                  ambiente.ArchivioDi("tessarc"));
  for (int giro = 0; giro < 5; ++giro) {
    double nostro = 0;
    double nudo = 0;
    for (int i = 0; i < kConferme; ++i) {
      PreparaRegistrazione(primanota);
      nostro += Secondi([&] {
        if (!primanota.Conferma()) throw std::runtime_error("conferma rifiutata");
      });
      nudo += Secondi([&] { bara.Conferma(); });
    }
    nostre.push_back(nostro);
    nude.push_back(nudo);
  }
  const std::string oltre = " WHERE Anno=" + std::to_string(ambiente.Anno()) + " AND NumDoc>" +
                            std::to_string(prima.Intero());
  ambiente.ArchivioDi("tessarc").Esegui("DELETE * FROM Movimenti" + oltre);
  ambiente.ArchivioDi("tessarc").Esegui("DELETE * FROM Articoli" + oltre);
  return {"conferma", Mediana(nostre) / Mediana(nude), 1.5};
}

constexpr const char* kUnConto =
    "SELECT Movimenti.CFP, Movimenti.Conto, Sum(ImpoDare), Sum(ImpoAvere) FROM Movimenti LEFT JOIN "
    "Articoli ON Movimenti.Anno=Articoli.Anno AND Movimenti.NumDoc=Articoli.NumDoc WHERE "
    "Articoli.Anno=2024 AND Articoli.Dt>=32874 AND Articoli.Dt<=51136 AND Movimenti.Conto=?1 AND "
    "Movimenti.CFP='P' AND ";

ledger::SaldoConto::Richiesta Richiesta(const std::string& conto, bool tutti) {
  ledger::SaldoConto::Richiesta richiesta;
  richiesta.mantieniAperto = tutti;
  richiesta.conto = conto;
  richiesta.anno = kPrimoAnno + kAnni - 1;
  richiesta.daData = Ambiente::DataMinima();
  richiesta.aData = Ambiente::DataMinima().PiuMesi(600);
  return richiesta;
}

std::vector<std::string> Conti(Archivio& archivio) {
  std::vector<std::string> codici;
  Rs righe = archivio.Recordset("SELECT Cod FROM Conti ORDER BY Cod");
  for (; !righe.Eof(); righe.MoveNext()) codici.push_back(righe.Fields(0).Testo());
  return codici;
}

Rapporto MisuraSaldo(Archivio& archivio, Nuda& nuda, const std::vector<std::string>& conti) {
  const std::string periodo = std::string(kUnConto) + kPeriodo + kGruppi;
  const std::string apertura = std::string(kUnConto) + kApertura + kGruppi;
  auto* primo = nuda.Prepara(periodo.c_str());
  auto* secondo = nuda.Prepara(apertura.c_str());
  return Misura(
      "saldo-conto", 1.2,
      [&] {
        ledger::SaldoConto saldo(archivio);
        for (int i = 0; i < kSaldi; ++i) {
          const auto& conto = conti[static_cast<std::size_t>(i * 11) % conti.size()];
          ultimo = saldo.Calcola(Richiesta(conto, false)).Finale().Decimillesimi();
        }
      },
      [&] {
        for (int i = 0; i < kSaldi; ++i) {
          const auto& conto = conti[static_cast<std::size_t>(i * 11) % conti.size()];
          for (auto* istruzione : {primo, secondo}) {
            Lega(istruzione, 1, conto.c_str());
            ultimo = Leggi(istruzione);
          }
        }
      });
}

Rapporto MisuraSaldi(Archivio& archivio, Nuda& nuda, const std::vector<std::string>& conti) {
  auto* primo = nuda.Prepara((std::string(kTutti) + kPeriodo + kGruppi).c_str());
  auto* secondo = nuda.Prepara((std::string(kTutti) + kApertura + kGruppi).c_str());
  return Misura(
      "saldi-anno", 0.35,
      [&] {
        ledger::SaldoConto saldo(archivio);
        for (const auto& conto : conti) {
          ultimo = saldo.Calcola(Richiesta(conto, true)).Finale().Decimillesimi();
        }
        saldo.Chiudi();
      },
      [&] {
        ultimo = Leggi(primo);
        ultimo = Leggi(secondo);
      });
}

Rapporto MisuraCerca(Ambiente& ambiente, Nuda& nuda, const std::vector<std::string>& conti) {
  auto* istruzione = nuda.Prepara("SELECT Descrizione FROM Conti WHERE Cod=?1");
  return Misura(
      "cerca", 2.5,
      [&] {
        for (int i = 0; i < kCerche; ++i) {
          const auto& conto = conti[static_cast<std::size_t>(i) % conti.size()];
          ultimo = static_cast<std::int64_t>(
              ambiente.Cerca("tessarc", "Conti", {{"Cod", conto}}, "Descrizione").Testo().size());
        }
      },
      [&] {
        for (int i = 0; i < kCerche; ++i) {
          Lega(istruzione, 1, conti[static_cast<std::size_t>(i) % conti.size()].c_str());
          ultimo = Leggi(istruzione);
        }
      });
}

Rapporto MisuraRecordset(Archivio& archivio, Nuda& nuda) {
  auto* istruzione =
      nuda.Prepara("SELECT * FROM Movimenti WHERE Anno=?1 AND NumDoc=?2 ORDER BY Posi");
  return Misura(
      "recordset", 2.5,
      [&] {
        for (int i = 0; i < kLetture; ++i) {
          Rs righe = archivio.Recordset("SELECT * FROM Movimenti WHERE Anno=2024 AND NumDoc=" +
                                        std::to_string(2 * i + 2) + " ORDER BY Posi");
          std::int64_t somma = 0;
          for (; !righe.Eof(); righe.MoveNext()) {
            somma += righe.Fields("ImpoDare").Importo().Decimillesimi() +
                     static_cast<std::int64_t>(righe.Fields("Conto").Testo().size());
          }
          ultimo = somma;
        }
      },
      [&] {
        for (int i = 0; i < kLetture; ++i) {
          sqlite3_bind_int(istruzione, 1, 2024);
          sqlite3_bind_int(istruzione, 2, 2 * i + 2);
          ultimo = Leggi(istruzione);
        }
      });
}

}  // namespace

std::vector<Rapporto> MisureArchivio(Ambiente& ambiente, const std::filesystem::path& nuda,
                                     const Nomi& nomi) {
  Nuda bara(nuda);
  auto& archivio = ambiente.ArchivioDi("tessarc");
  const auto conti = Conti(archivio);
  std::vector<Rapporto> rapporti;
  if (Chiesto(nomi, "conferma")) rapporti.push_back(MisuraConferma(ambiente, bara));
  if (Chiesto(nomi, "saldo-conto")) rapporti.push_back(MisuraSaldo(archivio, bara, conti));
  if (Chiesto(nomi, "saldi-anno")) rapporti.push_back(MisuraSaldi(archivio, bara, conti));
  if (Chiesto(nomi, "cerca")) rapporti.push_back(MisuraCerca(ambiente, bara, conti));
  if (Chiesto(nomi, "recordset")) rapporti.push_back(MisuraRecordset(archivio, bara));
  return rapporti;
}

}  // namespace fenalto::banco
