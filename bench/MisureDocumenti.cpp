#include "bench/MisureDocumenti.h"

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/DialoghiMuti.h"
#include "bench/GeneraDitta.h"
#include "bench/GeneraMagazzino.h"
#include "bench/Nuda.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "documents/entry/FattureCli.h"

namespace fenalto::banco {
namespace {

constexpr const char* kTipo = "02";  // a delivery note that isn't invoiced
constexpr const char* kCliente = "BANCO";
constexpr int kAnnoDocumenti = kPrimoAnno + kAnni - 1;
constexpr int kRigheDocumento = 30;
constexpr int kGiri = 5;
constexpr int kConfermeGiro = 15;
constexpr int kProposte = 300;

/// A head and its rows bound to prepared insertions, in one transaction.
class DocumentoNudo {
 public:
  explicit DocumentoNudo(Nuda& nuda)
      : nuda_(nuda),
        massimo_(nuda.Prepara("SELECT MAX(NumDoc) FROM FattureCli WHERE TipoDoc='02' AND Anno=?1")),
        testa_(nuda.Prepara(
            "INSERT INTO FattureCli (TipoDoc, Anno, NumDoc, Dt, CFP, CliFor, CausaleMag, CS, Mag, "
            "Trasporto, Porto, CodAspetto, Aspetto, CodiceCausaleTrasporto, CausaleTrasporto, "
            "DataOra) VALUES ('02', ?1, ?2, 45650, 'C', 'BANCO', 'OM', 'S', '01', 'M', 'FR', 'AV', "
            "'A VISTA', 'OM', 'OMAGGIO', '24/12/2024 10:00')")),
        riga_(nuda.Prepara(
            "INSERT INTO FattureCli_r (TipoDoc, Anno, NumDoc, Posi, CodiceRiga, Descrizione, um, "
            "Quantita, Prezzo, Importo, CodIva, Conto, Costo, Dt, CliFor, CFP, CausaleMag, CS, "
            "Mag) "
            "VALUES ('02', ?1, ?2, ?3, ?4, 'prodotto di prova numero 1234', 'NR', 20000, 100000, "
            "200000, '22', '700.001', 50000, 45650, 'BANCO', 'C', 'OM', 'S', '01')")) {}

  void Conferma(const std::vector<std::string>& prodotti) {
    nuda_.Esegui("BEGIN IMMEDIATE");
    sqlite3_bind_int(massimo_, 1, kAnnoDocumenti);
    sqlite3_step(massimo_);
    const std::int64_t numero = sqlite3_column_int64(massimo_, 0) + 1;
    sqlite3_reset(massimo_);
    sqlite3_bind_int(testa_, 1, kAnnoDocumenti);
    sqlite3_bind_int64(testa_, 2, numero);
    Fai(testa_);
    for (std::size_t i = 0; i < prodotti.size(); ++i) {
      sqlite3_bind_int(riga_, 1, kAnnoDocumenti);
      sqlite3_bind_int64(riga_, 2, numero);
      sqlite3_bind_int64(riga_, 3, static_cast<std::int64_t>(i + 1) * 100);
      Lega(riga_, 4, prodotti[i].c_str());
      Fai(riga_);
    }
    nuda_.Esegui("COMMIT");
  }

 private:
  static void Fai(sqlite3_stmt* istruzione) {
    if (sqlite3_step(istruzione) != SQLITE_DONE) throw std::runtime_error("scrittura nuda");
    sqlite3_reset(istruzione);
  }
  Nuda& nuda_;
  sqlite3_stmt* massimo_;
  sqlite3_stmt* testa_;
  sqlite3_stmt* riga_;
};

/// The reads behind a row: its product, what moved in the year, its loads, what is open.
class PropostaNuda {
 public:
  explicit PropostaNuda(Nuda& nuda) {
    const std::string anno = std::to_string(kAnnoDocumenti);
    const auto aperti = [](const char* tabella, const char* chiave, const char* lato,
                           const char* stato) {
      const std::string t = tabella;
      return "SELECT Sum(" + t +
             ".Quantita-ifnull((SELECT Sum(r.Quantita) FROM FattureCli_r r "
             "WHERE r." +
             chiave + "<>0 AND r." + chiave + "=" + t + ".NumDoc AND r.Posi" + chiave + "=" + t +
             ".Posi AND " + lato + "),0)) FROM " + t + " WHERE CodiceRiga=?1 AND " + stato;
    };
    const std::string mossi =
        "SELECT Sum(Quantita) FROM FattureCli_r WHERE CodiceRiga=?1 AND Anno=" + anno +
        " AND Mag='01' AND CS=";
    for (const std::string& testo :
         {std::string("SELECT * FROM CodiciRiga WHERE Cod=?1"), mossi + "'C'", mossi + "'S'",
          "SELECT TipoDoc, NumDoc, Anno, Dt, Quantita, Prezzo, Sc1, Sc2, Sc3, CausaleMag FROM "
          "FattureCli_r WHERE CodiceRiga=?1 AND CS='C' AND Anno=" +
              anno + " ORDER BY Dt, NumDoc",
          aperti("OrdiniCli_r", "Ordine", "r.CFP='C'", "OrdineSaldato=0 AND TipoDoc='O'"),
          aperti("OrdiniFor_r", "Ordine", "r.CFP='F'", "OrdineSaldato=0 AND TipoDoc='O'"),
          aperti("Commesse_r", "Commessa", "r.CS='S'", "Ut=0")}) {
      letture_.push_back(nuda.Prepara(testo.c_str()));
    }
  }
  std::int64_t Di(const std::string& prodotto) {
    std::int64_t somma = 0;
    for (auto* istruzione : letture_) {
      Lega(istruzione, 1, prodotto.c_str());
      somma += Leggi(istruzione);
    }
    return somma;
  }

 private:
  std::vector<sqlite3_stmt*> letture_;
};

std::vector<std::string> Prodotti(Sequenza& sorte, int quanti) {
  std::vector<std::string> codici;
  for (int i = 0; i < quanti; ++i) codici.push_back(CodiceProdotto(sorte.Fino(kProdottiMagazzino)));
  return codici;
}

void Comincia(documents::FattureCli& documento) {
  if (!documento.ScegliTipo(kTipo) || !documento.Nuovo()) throw std::runtime_error("documento");
  documento.Testa().Scrivi("CliFor", kCliente);
  documento.TestaLasciata("CliFor");
}

void DigitaDocumento(documents::FattureCli& documento, const std::vector<std::string>& prodotti) {
  Comincia(documento);
  std::vector<documents::ValoriRiga> righe;
  for (const std::string& codice : prodotti) {
    righe.push_back(
        {.codiceRiga = codice, .quantita = Importo::DaUnita(2), .prezzo = Importo::DaUnita(10)});
  }
  if (const auto errore = documento.RigheDa(righe)) throw std::runtime_error(errore->messaggio);
}

Rapporto MisuraConfermaDocumento(Ambiente& ambiente, Nuda& nuda) {
  DocumentoNudo nudo(nuda);
  documents::FattureCli documento(ambiente);
  Sequenza sorte(5);
  std::vector<double> nostre;
  std::vector<double> nude;
  for (int giro = 0; giro < kGiri; ++giro) {
    double nostro = 0;
    double bare = 0;
    for (int i = 0; i < kConfermeGiro; ++i) {
      const auto prodotti = Prodotti(sorte, kRigheDocumento);
      DigitaDocumento(documento, prodotti);
      nostro += Secondi([&] {
        if (!documento.Conferma()) throw std::runtime_error("conferma rifiutata");
      });
      bare += Secondi([&] { nudo.Conferma(prodotti); });
    }
    nostre.push_back(nostro);
    nude.push_back(bare);
  }
  std::printf("# documento: %.2f ms a %.2f\n", Mediana(nostre) / kConfermeGiro * 1e3,
              Mediana(nude) / kConfermeGiro * 1e3);
  return {"documento", Mediana(nostre) / Mediana(nude), 1.7};
}

Rapporto MisuraProposta(Ambiente& ambiente, Nuda& nuda) {
  PropostaNuda nude(nuda);
  documents::FattureCli documento(ambiente);
  Comincia(documento);
  Sequenza sorte(9);
  const auto prodotti = Prodotti(sorte, kProposte);
  std::int64_t letto = 0;
  double nostri = 0;
  Rapporto rapporto = Misura(
      "riga-documento", 4.0,
      [&] {
        nostri = Secondi([&] {
          for (const std::string& codice : prodotti) {
            documento.PNuovaRiga();
            documento.Riga().Scrivi("CodiceRiga", codice);
            documento.RigaLasciata("CodiceRiga");
            letto += documento.Accanto()->esistenza.esistenza.Decimillesimi();
            documento.AnnullaRiga();
          }
        });
      },
      [&] {
        for (const std::string& codice : prodotti) letto += nude.Di(codice);
      });
  if (letto == 0) throw std::runtime_error("nessuna esistenza");
  std::printf("# riga-documento: %.2f ms\n", nostri / kProposte * 1e3);
  return rapporto;
}

}  // namespace

std::vector<Rapporto> MisureDocumenti(const OpzioniAmbiente& opzioni, const Nomi& nomi) {
  std::vector<Rapporto> rapporti;
  const bool conferma = Chiesto(nomi, "documento");
  const bool proposta = Chiesto(nomi, "riga-documento");
  if (!conferma && !proposta) return rapporti;
  GeneraMagazzino(opzioni, kDittaMagazzino);
  DialoghiMuti dialoghi;
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  if (auto esito = ambiente.ApriDitta(kDittaMagazzino); !esito) {
    throw std::runtime_error(esito.Errore().messaggio);
  }
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  if (!ambiente.Esiste("tessarc", "Clienti", {{"Cod", kCliente}})) {
    tessarc.Inserisci("Clienti", {{"Cod", kCliente}, {"ragsoc1", "Cliente del banco"}});
  }
  const auto copia = opzioni.cartellaProgramma / "documenti-nudi.db";
  std::filesystem::copy_file(ambiente.PercorsoDb("tessarc"), copia,
                             std::filesystem::copy_options::overwrite_existing);
  {
    Nuda nuda(copia, engine::sqlite::RegistraMotore);
    if (proposta) rapporti.push_back(MisuraProposta(ambiente, nuda));
    if (conferma) rapporti.push_back(MisuraConfermaDocumento(ambiente, nuda));
  }
  // The company is another one's to measure on too.
  for (const char* tabella : {"FattureCli", "FattureCli_r"}) {
    tessarc.Esegui(std::string("delete * from ") + tabella + " where TipoDoc='" + kTipo + "'");
  }
  std::filesystem::remove(copia);
  return rapporti;
}

}  // namespace fenalto::banco
