#include "ledger/DittaDiProva.h"

#include <sqlite3.h>

#include <sstream>
#include <stdexcept>
#include <utility>

#include "core/sql/Criterio.h"

namespace fenalto::prova {

namespace fs = std::filesystem;

namespace {

/// Made once: every test works on a copy of its own.
const fs::path& Originale() {
  static const CartellaProva cartella;
  static const bool creata = [] {
    CreaDittaProva(OpzioniProva(cartella.Percorso()), "Prova",
                   {{2000, false}, {2023, true}, {2024, true}, {2025, true}});
    return true;
  }();
  static_cast<void>(creata);
  return cartella.Percorso();
}

OpzioniAmbiente OpzioniStazione(const fs::path& programma, const std::string& nome) {
  OpzioniAmbiente opzioni = OpzioniProva(programma);
  opzioni.stazione = nome;
  return opzioni;
}

}  // namespace

DittaDiProva::Stazione::Stazione(const fs::path& programma, const std::string& nome, Data oggi)
    : orologio(oggi),
      ambiente(
          std::make_unique<Ambiente>(OpzioniStazione(programma, nome), dialoghi, orologio, caso)) {
  const auto aperta = ambiente->ApriDitta("Prova", 2024);
  if (!aperta) throw std::runtime_error(aperta.Errore().messaggio);
}

DittaDiProva::DittaDiProva()
    : stazione((fs::copy(Originale(), cartella / "programma", fs::copy_options::recursive),
                NuovaStazione("UFFICIO"))),
      ambiente(*stazione->ambiente),
      dialoghi(stazione->dialoghi) {
  const std::vector<std::pair<const char*, const char*>> parti = {{"Clienti", "C"},
                                                                  {"Fornitori", "F"}};
  Transazione transazione(ambiente.Basi());
  for (const auto& [tabella, cfp] : parti) {
    // 0003 lacks its summary account.
    for (const char* cod : {"0001", "0002", "0003"}) {
      const std::string nome = std::string(tabella) + " " + cod + " dell'Oro";
      const bool senza = std::string_view(cod) == "0003";
      const char* riepilogo = std::string_view(cfp) == "C" ? "120.001" : "400.001";
      Metti(Tessarc(), tabella, "Cod", cod, "ragsoc1", nome, "Conto", senza ? "" : riepilogo);
      Metti(Tessarc(), "ContiClientiFornitori", "Cod", cod, "CFP", cfp, "Descrizione", nome);
    }
  }
  transazione.Conferma();
}

DittaDiProva::~DittaDiProva() = default;

std::unique_ptr<DittaDiProva::Stazione> DittaDiProva::NuovaStazione(const std::string& nome) const {
  return std::make_unique<Stazione>(cartella / "programma", nome, G(15, 3, 2024));
}

std::string DittaDiProva::Contenuto(const std::string& archivio) const {
  sqlite3* db = nullptr;
  sqlite3_open_v2(ambiente.PercorsoDb(archivio).c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
  std::ostringstream tutto;
  const auto scorri = [&](const std::string& sql, const auto& riga) {
    sqlite3_stmt* istruzione = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &istruzione, nullptr) != SQLITE_OK) {
      ADD_FAILURE() << sqlite3_errmsg(db);
    }
    while (sqlite3_step(istruzione) == SQLITE_ROW) riga(istruzione);
    sqlite3_finalize(istruzione);
  };
  std::vector<std::string> tabelle;
  scorri("SELECT name FROM sqlite_master WHERE type='table' ORDER BY rowid", [&](auto* i) {
    const std::string nome(static_cast<const char*>(sqlite3_column_blob(i, 0)),
                           static_cast<std::size_t>(sqlite3_column_bytes(i, 0)));
    tabelle.push_back(nome);
  });
  for (const std::string& tabella : tabelle) {
    tutto << "\n[" << tabella << "]\n";
    scorri("SELECT * FROM \"" + tabella + "\"", [&](auto* i) {
      for (int c = 0; c < sqlite3_column_count(i); ++c) {
        const auto* testo = static_cast<const char*>(sqlite3_column_blob(i, c));
        tutto << (testo == nullptr
                      ? ""
                      : std::string(testo, static_cast<std::size_t>(sqlite3_column_bytes(i, c))))
              << '\x1f';
      }
      tutto << '\n';
    });
  }
  sqlite3_close(db);
  return tutto.str();
}

std::vector<std::string> DittaDiProva::Messaggi() {
  return std::exchange(dialoghi.messaggi, {});
}

std::string DittaDiProva::SoloMessaggio() {
  const std::vector<std::string> messaggi = Messaggi();
  EXPECT_EQ(messaggi.size(), 1U) << ::testing::PrintToString(messaggi);
  return messaggi.empty() ? "" : messaggi.back();
}

std::string DittaDiProva::UltimaDomanda() const {
  return dialoghi.domande.empty() ? "" : dialoghi.domande.back();
}

bool DittaDiProva::Scrivi(ledger::Primanota& pn, const RigaDaScrivere& r) {
  if (!pn.PNuovaRiga()) return false;
  pn.Riga().Scrivi("Causale", r.causale);
  pn.Riga().Scrivi("Descrizione", r.descrizione);
  pn.Riga().Scrivi("CFP", r.cfp);
  pn.Riga().Scrivi("Conto", r.conto);
  pn.Riga().Scrivi(r.importo.Negativo() ? "ImpoAvere" : "ImpoDare", r.importo.Assoluto());
  return pn.ConfermaRiga();
}

std::int64_t DittaDiProva::Registra(ledger::Primanota& pn, const std::vector<RigaDaScrivere>& righe,
                                    Data data) {
  pn.Nuovo();
  pn.Testa().Scrivi("Dt", data);
  for (const RigaDaScrivere& riga : righe)
    if (!Scrivi(pn, riga)) return 0;
  return pn.Conferma() ? pn.NumeroConfermato() : 0;
}

std::int64_t DittaDiProva::Registra(const std::vector<RigaDaScrivere>& righe, Data data) {
  ledger::Primanota pn(ambiente);
  const std::int64_t numero = Registra(pn, righe, data);
  EXPECT_NE(numero, 0);
  Messaggi();
  return numero;
}

Valore DittaDiProva::CampoTestata(std::int64_t numero, const char* campo) {
  return ambiente.Cerca("tessarc", "Articoli", {{"Anno", ambiente.Anno()}, {"NumDoc", numero}},
                        campo);
}

std::int64_t DittaDiProva::NumeroRighe(std::int64_t numero) {
  return Tessarc()
      .Singolo("select Count(*) from Movimenti where " + sql::Criterio("NumDoc", "=", numero) +
               " and " + sql::Criterio("Anno", "=", ambiente.Anno()))
      .Intero();
}

}  // namespace fenalto::prova
