#include "documents/entry/DocumentoDiProva.h"

#include "core/sql/Criterio.h"
#include "warehouse/stock/Esistenza.h"

namespace fenalto::prova {
namespace {

void MettiProdotti(Archivio& tessarc) {
  Metti(tessarc, "CodiciRiga", "Cod", "P1", "Descrizione", "Vite 4x30", "um", "NR", "CodIva", "22",
        "Conto", "700.001", "Barcode", "8001", "CostoDigitato", I("2"));
  Metti(tessarc, "CodiciRiga", "Cod", "P2", "Descrizione", "Dado", "um", "KG", "CodIva", "10",
        "Barcode", "8002");
  Metti(tessarc, "CodiciRiga", "Cod", "P3", "Descrizione", "Rondella", "FuoriUso", true);
  Metti(tessarc, "CodiciRiga", "Cod", "DB", "Descrizione", "Mensola", "um", "NR", "CodIva", "22",
        "Conto", "700.001");
  Metti(tessarc, "CodiciRiga", "Cod", "SP", "Descrizione", "Spese incasso", "Prezzo", I("3.5"),
        "CodIva", "22", "Conto", "700.001");
  Metti(tessarc, "Db_r", "Cod", "DB", "Posi", 1, "CodiceRiga", "P1", "Quantita", I("2"));
  Metti(tessarc, "Db_r", "Cod", "DB", "Posi", 2, "CodiceRiga", "P2", "Quantita", I("3"));
  Metti(tessarc, "prodottiFor_r", "Cod", "P1", "Posi", 1, "Fornitore", "9001", "codprfor", "VT430",
        "Prezzo", I("5"), "Sc1", I("10"));
}

void MettiParti(Archivio& tessarc) {
  Metti(tessarc, "Agenti", "Cod", "99", "Descrizione", "Rossi", "Provv", I("4"));
  Metti(tessarc, "Vettori", "Cod", "V1", "Descrizione", "Corriere", "Riga1", "Corriere spa",
        "Riga4", "Albo 12");
  Metti(tessarc, "Clienti", "Cod", "9001", "ragsoc1", "Alfa srl", "Conto", "120.001", "Agente",
        "99", "Vettore", "V1", "ScCassa", I("2"), "Pagamento", "RD", "VarieDdt1", "ddt uno",
        "VarieFat1", "fat uno", "RagSoc1Dest", "Alfa deposito", "provdest", "MI", "SpRiBa", "SP");
  Metti(tessarc, "Clienti", "Cod", "9002", "ragsoc1", "Beta snc", "Conto", "120.001");
  Metti(tessarc, "Destinazioni_R", "COD", "9001", "POSI", 7, "RagSoc1Dest_R", "Cantiere",
        "localitadest_r", "Como");
  Metti(tessarc, "Fornitori", "Cod", "9001", "ragsoc1", "Gamma spa", "Conto", "400.001");
  for (const char* cfp : {"C", "F"}) {
    Metti(tessarc, "ContiClientiFornitori", "Cod", "9001", "CFP", cfp, "Descrizione", "prova");
  }
}

void MettiTipi(Archivio& tessarc) {
  Metti(tessarc, "TipiFattureCli", "Cod", "XF", "Descrizione", "Fattura di prova", "TipoStampa",
        "FATTURA", "Tipo", "Fattura", "CFP", "C");
  Metti(tessarc, "TipiFattureCli", "Cod", "XI", "Descrizione", "Accompagnatoria", "TipoStampa",
        "FATTACC", "Tipo", "Fattura", "CFP", "C", "PrezziIvati", true, "CausaleMag", "SV");
  Metti(tessarc, "TipiFattureCli", "Cod", "XN", "Descrizione", "Nota", "TipoStampa", "BOLLA", "CFP",
        "C", "CausaleMag", "SV", "Campo1", "Peso kg");
  Metti(tessarc, "TipiFattureCli", "Cod", "XR", "Descrizione", "Fattura 1", "TipoStampa", "FATTURA",
        "CFP", "C", "Riva", "1");
}

}  // namespace

DocumentoDiProva::DocumentoDiProva() {
  Transazione transazione(ambiente.Basi());
  MettiProdotti(Tessarc());
  MettiParti(Tessarc());
  MettiTipi(Tessarc());
  Metti(Tessarc(), "Ut", "Cod", "U", "Livello", 99);
  transazione.Conferma();
}

void DocumentoDiProva::Campi(documents::FattureCli& d, const CampiDaScrivere& campi) {
  for (const auto& [campo, valore] : campi) {
    d.Testa().Scrivi(campo, valore);
    d.TestaLasciata(campo);
  }
}

bool DocumentoDiProva::DigitaRiga(documents::FattureCli& d, const RigaDaDigitare& riga) {
  if (!d.PNuovaRiga()) return false;
  const auto scrivi = [&](const std::string& campo, const Valore& valore) {
    d.Riga().Scrivi(campo, valore);
    d.RigaLasciata(campo);
  };
  scrivi("CodiceRiga", riga.codice);
  scrivi("Quantita", riga.quantita);
  if (riga.prezzo) scrivi("Prezzo", *riga.prezzo);
  for (const auto& [campo, valore] : riga.altri) scrivi(campo, valore);
  return d.ConfermaRiga();
}

bool DocumentoDiProva::Digita(documents::FattureCli& d, const DocumentoDaDigitare& documento) {
  if (!d.ScegliTipo(documento.tipo) || !d.Nuovo()) return false;
  if (!documento.parte.empty()) Campi(d, {{"CliFor", documento.parte}});
  Campi(d, documento.altri);
  for (const RigaDaDigitare& riga : documento.righe) {
    if (!DigitaRiga(d, riga)) return false;
  }
  return true;
}

std::int64_t DocumentoDiProva::Inserisci(const DocumentoDaDigitare& documento) {
  documents::FattureCli d(ambiente);
  const bool scritto = Digita(d, documento) && d.Conferma();
  if (!scritto) {
    ADD_FAILURE() << ::testing::PrintToString(Messaggi());
    d.Abbandona();
  }
  Messaggi();
  return scritto ? d.Confermato().numDoc : 0;
}

std::string DocumentoDiProva::RigheDi(const std::string& tipo, std::int64_t numero) {
  std::string testo;
  for (const documents::RigaDocumento& r :
       documents::LeggiRighe(ambiente, {tipo, ambiente.Anno(), numero})) {
    testo += (testo.empty() ? "" : " | ") + std::to_string(r.posi) + " " + r.codiceRiga + " " +
             r.quantita.Testo() + " a " + r.prezzo.Testo() + " = " + r.importo.Testo();
    const auto piu = [&](const char* nome, const Importo& valore) {
      if (!valore.Zero()) testo += std::string(" ") + nome + valore.Testo();
    };
    piu("-", r.sc1);
    piu("costo ", r.costo);
    if (r.nl1 != 0) testo += " nl1:" + std::to_string(r.nl1);
    if (r.nl3 != 0) testo += " nl3:" + std::to_string(r.nl3);
  }
  return testo;
}

Valore DocumentoDiProva::DellaTesta(const std::string& tipo, std::int64_t numero,
                                    const char* campo) {
  return ambiente.Cerca("tessarc", "FattureCli",
                        {{"TipoDoc", tipo}, {"Anno", ambiente.Anno()}, {"NumDoc", numero}}, campo);
}

std::string DocumentoDiProva::Quanti() {
  return Tessarc().Singolo("select Count(*) from FattureCli").Testo() + " " +
         Tessarc().Singolo("select Count(*) from FattureCli_r").Testo();
}

std::string DocumentoDiProva::Esistenza(const char* prodotto, const char* mag) {
  return warehouse::CalcoloEsistenza(ambiente, prodotto, {.mag = mag}).esistenza.Testo();
}

std::int64_t DocumentoDiProva::Discordi() {
  return Tessarc()
      .Singolo(
          "select Count(*) from FattureCli_r left join FattureCli on FattureCli_r.TipoDoc="
          "FattureCli.TipoDoc and FattureCli_r.Anno=FattureCli.Anno and FattureCli_r.NumDoc="
          "FattureCli.NumDoc where FattureCli.NumDoc is null or FattureCli_r.Dt<>FattureCli.Dt or "
          "FattureCli_r.CliFor<>FattureCli.CliFor or FattureCli_r.CFP<>FattureCli.CFP or "
          "FattureCli_r.CausaleMag<>FattureCli.CausaleMag or FattureCli_r.CS<>FattureCli.CS or "
          "FattureCli_r.Mag<>FattureCli.Mag or FattureCli_r.DtDocCarico<>FattureCli.DtDocCarico "
          "or FattureCli_r.NumDocCarico<>FattureCli.NumDocCarico")
      .Intero();
}

}  // namespace fenalto::prova
