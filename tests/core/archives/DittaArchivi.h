// A company with a described archive over Categorie, and what its functions were called with.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/archives/ArchivioCodici.h"
#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"
#include "core/sql/Criterio.h"

namespace fenalto::prova {

class DittaArchivi : public ::testing::Test {
 protected:
  struct Stazione {
    Stazione(const std::filesystem::path& programma, const std::string& nome) {
      OpzioniAmbiente opzioni = OpzioniProva(programma);
      opzioni.stazione = nome;
      ambiente = std::make_unique<Ambiente>(opzioni, dialoghi, orologio, caso);
      const auto aperta = ambiente->ApriDitta("Prova", 2026);
      if (!aperta) throw std::runtime_error(aperta.Errore().messaggio);
    }
    DialoghiFinti dialoghi;
    OrologioFinto orologio;
    CasoFinto caso;
    std::unique_ptr<Ambiente> ambiente;
  };

  DittaArchivi()
      : stazione((std::filesystem::copy(Originale(), cartella / "programma",
                                        std::filesystem::copy_options::recursive),
                  Altra("UFFICIO"))),
        ambiente(*stazione->ambiente),
        dialoghi(stazione->dialoghi) {
    Tessarc().Esegui("delete * from Categorie");
    for (const char* cod : {"A", "B", "C"})
      Tessarc().Inserisci("Categorie", {{"Cod", cod}, {"Descrizione", std::string("voce ") + cod}});
  }

  std::unique_ptr<Stazione> Altra(const std::string& nome) const {
    return std::make_unique<Stazione>(cartella / "programma", nome);
  }
  Archivio& Tessarc() { return ambiente.ArchivioDi("tessarc"); }

  /// Every function leaves its name in `traccia`; those named in `ferma` refuse.
  archives::DescrizioneArchivio Categorie() {
    archives::DescrizioneArchivio d;
    d.finestra = "Categorie";
    d.titolo = "Archivio Categorie";
    d.tabella = "Categorie";
    d.titoloNuovo = "nuova categoria";
    d.titoloRecord = "categoria ";
    d.campiExtra = {{"Nota", Tipo::Testo}};
    d.campi = {{.nome = "nonmodif", .didascalia = "fissa", .elenco = true}};
    d.aperto = [this](archives::ContestoArchivio& c) {
      traccia.emplace_back("aperto");
      c.scheda.Scrivi("Nota", "nota di " + c.Codice());
    };
    const auto passo = [this](const std::string& nome) {
      return [this, nome](archives::ContestoArchivio&) -> std::optional<Rifiuto> {
        traccia.push_back(nome);
        if (ferma != nome) return std::nullopt;
        return Rifiuto{"fermo: " + nome, "Descrizione"};
      };
    };
    d.controlli = {passo("controllo 1"), passo("controllo 2")};
    d.guardieCodice = {passo("guardia codice")};
    d.guardieElimina = {passo("guardia elimina")};
    d.conScrittura = [this](archives::ContestoArchivio& c) {
      traccia.emplace_back("con scrittura");
      EXPECT_TRUE(c.ambiente.Basi().InTransazione());
    };
    d.conEliminazione = [this](archives::ContestoArchivio&) {
      traccia.emplace_back("con eliminazione");
    };
    d.dopoConferma = [this](archives::ContestoArchivio& c) {
      EXPECT_FALSE(c.ambiente.Basi().InTransazione());
      traccia.push_back("dopo " + std::string(c.nuovo ? "nuovo" : c.codicePrima) + ">" +
                        c.Codice());
    };
    return d;
  }

  /// Rows of Categorie in order of code, "cod=descrizione".
  std::vector<std::string> Righe() {
    std::vector<std::string> righe;
    Rs rs = Tessarc().Recordset("select Cod, Descrizione from Categorie order by Cod");
    for (; !rs.Eof(); rs.MoveNext())
      righe.push_back(rs.Fields(0).Testo() + "=" + rs.Fields(1).Testo());
    return righe;
  }
  std::vector<std::string> Traccia() { return std::exchange(traccia, {}); }
  std::vector<std::string> Messaggi() { return std::exchange(dialoghi.messaggi, {}); }

  CartellaProva cartella;
  std::unique_ptr<Stazione> stazione;
  Ambiente& ambiente;
  DialoghiFinti& dialoghi;
  std::vector<std::string> traccia;
  std::string ferma;

 private:
  /// Made once: every test works on a copy of its own.
  static const std::filesystem::path& Originale() {
    static const CartellaProva originale;
    static const bool creata = (CreaDittaProva(OpzioniProva(originale.Percorso()), "Prova"), true);
    static_cast<void>(creata);
    return originale.Percorso();
  }
};

}  // namespace fenalto::prova
