// The head: what follows from the party chosen, and from codes.
#include <algorithm>

#include "core/values/FormatoImporto.h"
#include "documents/entry/FattureCliInterno.h"

namespace fenalto::documents {

Scheda& FattureCli::Testa() {
  return interno_->testa;
}

// --- Party ---------------------------------------------------------------------------------------

void FattureCli::Interno::LeggiParte() {
  parte = T("CliFor").empty()
              ? Rs()
              : tessarc.Recordset(std::string("select * from ") +
                                  (DiFornitori() ? "Fornitori" : "Clienti") + " where " +
                                  sql::Criterio("Cod", "=", std::string(Rifila(T("CliFor")))));
}

Valore FattureCli::Interno::DellaParte(std::string_view campo) const {
  if (!HaParte() || !parte.Indice(campo)) return {};
  return parte.Fields(campo);
}

void FattureCli::Interno::DestinazionePredefinita() {
  testa.Scrivi("Destinazione", 0);
  if (!HaParte() || !parte.Indice("RagSoc1Dest")) return;
  for (const char* campo :
       {"RagSoc1Dest", "ragsoc2Dest", "indirizzodest", "capdest", "localitadest", "provdest"}) {
    testa.Scrivi(campo, DellaParte(campo));
  }
}

void FattureCli::Interno::ParteCliente() {
  if (!DiClienti()) return;
  testa.Scrivi("Pagamento", DellaParte("Pagamento"));
  if (!tipo.prezziIvati) testa.Scrivi("ScontoCassa", DellaParte("ScCassa"));
  testa.Scrivi("Agente", DellaParte("Agente"));
}

void FattureCli::Interno::ParteTrasporto() {
  if (!tipo.Bolla() && !tipo.FattAcc()) return;
  testa.Scrivi("CodiceVettore", DellaParte("Vettore"));
  VettoreScelto();
}

void FattureCli::Interno::ParteFattura() {
  if (!tipo.Fatturazione()) return;
  testa.Scrivi("Varie1", DellaParte("VarieFat1"));
  testa.Scrivi("Varie2", DellaParte("VarieFat2"));
  testa.Scrivi("Ep", DellaParte("Ep"));
  testa.Scrivi("RaCod", DellaParte("Ritenuta"));
  Descrivi("RaCod", "Ritenute", "RaDescrizione");
  if (!T("RaCod").empty()) Avviso("Cliente soggetto a ritenuta " + T("RaCod"));
}

void FattureCli::Interno::ParteScelta() {
  LeggiParte();
  if (!HaParte()) return;
  testa.Scrivi("CliFor", DellaParte("Cod"));
  DestinazionePredefinita();
  if (tipo.Bolla() || tipo.Scontrino()) {
    testa.Scrivi("Varie1", DellaParte("VarieDdt1"));
    testa.Scrivi("Varie2", DellaParte("VarieDdt2"));
  }
  ParteCliente();
  ParteTrasporto();
  ParteFattura();
  const Importo fido = DiClienti() ? DellaParte("Fido").Importo() : Importo();
  if (!fido.Zero()) {
    Avviso("attenzione: sul cliente è indicato un fido di " +
           ScriviImporto(fido, ambiente.Euro() ? 2 : 0));
  }
}

std::string FattureCli::NotaEsenzione() const {
  const Interno& io = *interno_;
  if (!io.documento.Aperto() || !io.DiClienti() || !io.DaFatturare()) return {};
  const std::string esenzione = NzStr(io.DellaParte("EsenzioneIva"));
  return esenzione.empty() ? "" : "sul cliente è impostato il cod.esenz.IVA " + esenzione;
}

std::vector<std::string> FattureCli::DatiParte() const {
  const Interno& io = *interno_;
  std::vector<std::string> righe;
  const auto aggiungi = [&](std::initializer_list<const char*> campi) {
    std::string testo;
    for (const char* campo : campi) {
      const std::string pezzo = NzStr(io.DellaParte(campo));
      if (!pezzo.empty()) testo.append(testo.empty() ? "" : " ").append(pezzo);
    }
    if (!testo.empty()) righe.push_back(testo);
  };
  aggiungi({"ragsoc1"});
  aggiungi({"ragsoc2"});
  aggiungi({"indirizzo"});
  aggiungi({"cap", "localita", "Prov"});
  return righe;
}

// --- Codes ---------------------------------------------------------------------------------------

void FattureCli::Interno::Descrivi(const char* campoCodice, const char* tabella,
                                   const char* campoTesto, const char* colonna) {
  testa.Scrivi(campoTesto,
               NzStr(ambiente.Cerca("tessarc", tabella,
                                    {{"Cod", std::string(Rifila(T(campoCodice)))}}, colonna)));
}

std::vector<DestinazioneMerce> FattureCli::Destinazioni() const {
  const Interno& io = *interno_;
  if (!io.documento.Aperto() || !io.DiClienti() || io.T("CliFor").empty()) return {};
  DestinazioniCliente destinazioni;
  destinazioni.Leggi(io.ambiente, io.T("CliFor"));
  return destinazioni.Righe();
}

void FattureCli::Interno::DestinazioneScelta() {
  if (N("Destinazione") == 0) {
    DestinazionePredefinita();
    return;
  }
  DestinazioniCliente destinazioni;
  destinazioni.Leggi(ambiente, T("CliFor"));
  const auto scelta =
      std::ranges::find(destinazioni.Righe(), N("Destinazione"), &DestinazioneMerce::posi);
  if (scelta == destinazioni.Righe().end()) {
    testa.Scrivi("Destinazione", 0);
    return;
  }
  constexpr std::array kCampi = {"RagSoc1Dest", "ragsoc2Dest",  "indirizzodest",
                                 "capdest",     "localitadest", "provdest"};
  for (std::size_t i = 0; i < kCampi.size(); ++i) testa.Scrivi(kCampi[i], scelta->testi[i]);
}

void FattureCli::Interno::VettoreScelto() {
  Rs vettore =
      tessarc.Recordset("select Riga1, Riga2, Riga3, Riga4 from Vettori where " +
                        sql::Criterio("Cod", "=", std::string(Rifila(T("CodiceVettore")))));
  for (std::size_t i = 0; i < 4; ++i) {
    testa.Scrivi("Vettore" + std::to_string(i + 1), vettore.Eof() ? Valore("") : vettore.Fields(i));
  }
}

void FattureCli::Interno::AvvisaData() {
  const Data data = D("Dt");
  if (data.Nulla() || data == dataAvvisata || data.Anno() == anno) return;
  dataAvvisata = data;
  Avviso("la data del documento " + data.Testo() + " non è dell'anno " + std::to_string(anno) +
         ": il documento resta dell'anno " + std::to_string(anno));
}

void FattureCli::TestaLasciata(std::string_view campo) {
  Interno& io = *interno_;
  if (!io.documento.Modificabile()) return;
  if (UgualeTesto(campo, "CliFor")) io.ParteScelta();
  if (UgualeTesto(campo, "Destinazione")) io.DestinazioneScelta();
  if (UgualeTesto(campo, "CodiceVettore")) io.VettoreScelto();
  if (UgualeTesto(campo, "CodiceCausaleTrasporto")) {
    io.Descrivi("CodiceCausaleTrasporto", "CodiciCausaliTrasporto", "CausaleTrasporto");
  }
  if (UgualeTesto(campo, "CodAspetto")) io.Descrivi("CodAspetto", "CodiciAspetto", "Aspetto");
  if (UgualeTesto(campo, "RaCod")) io.Descrivi("RaCod", "Ritenute", "RaDescrizione");
  if (UgualeTesto(campo, "RaCod2")) io.Descrivi("RaCod2", "Ritenute", "RaDescrizione2");
  if (UgualeTesto(campo, "Dt")) io.AvvisaData();
  if (UgualeTesto(campo, "Mag")) io.accanto.reset();
  try {
    io.CalcolaTotali();
  } catch (const FuoriCampo& e) {
    io.testa.Scrivi("ScontoCassa", Importo());
    io.Avviso(e.what());
  }
  io.Segna();
}

}  // namespace fenalto::documents
