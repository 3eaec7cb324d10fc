// What is proposed for a row once its product is known.
#include "core/session/ImpostazioneAttiva.h"
#include "core/values/Aritmetica.h"
#include "documents/entry/FattureCliInterno.h"

namespace fenalto::documents {

const warehouse::Costi& FattureCli::Interno::CostiDi(const std::string& prodotto) {
  const std::string quale = SenzaMaiuscole(prodotto);
  const auto letti = costi.find(quale);
  if (letti != costi.end()) return letti->second;
  return costi.emplace(quale, warehouse::CalcoloCosti(ambiente, prodotto)).first->second;
}

Importo FattureCli::Interno::CostoDi(const warehouse::Prodotto& prodotto) {
  const Importo ultimo = CostiDi(prodotto.cod).ultimo;
  return ultimo.Zero() ? prodotto.costoDigitato : ultimo;
}

void FattureCli::Interno::ProponiDaProdotto(RigaDocumento& una,
                                            const warehouse::Prodotto& prodotto) {
  una.um = prodotto.um;
  una.descrizione = prodotto.descrizione;
  // What leaves the warehouse, or is sold without moving any, bears what it cost.
  if (Scarico() || (DiClienti() && T("CS").empty())) una.costo = CostoDi(prodotto);
  if (!DiClienti() || !(DaFatturare() || tipo.Scontrino())) return;
  const std::string esenzione = NzStr(DellaParte("EsenzioneIva"));
  if (!esenzione.empty()) {
    una.codIva = esenzione;
  } else if (!prodotto.codIva.empty()) {
    una.codIva = prodotto.codIva;
  }
  if (!prodotto.conto.empty()) una.conto = prodotto.conto;
}

void FattureCli::Interno::ProponiPrezzoCarico(RigaDocumento& una,
                                              const warehouse::Prodotto& prodotto,
                                              Proposta& proposta) {
  if (ImpostazioneAttiva(ambiente, "PropongoCostoDigitato")) {
    una.prezzo = prodotto.costoDigitato;
  } else if (const auto suo =
                 warehouse::LeggiFornitoreProdotto(ambiente, prodotto.cod, T("CliFor"))) {
    una.prezzo = suo->prezzo;
    una.sc1 = suo->sc1;
    una.sc2 = suo->sc2;
    una.sc3 = suo->sc3;
    if (!suo->codPrFor.empty()) una.descrizione += "\ncod.forn." + suo->codPrFor;
  } else if (ImpostazioneAttiva(ambiente, "FornNonPrevisto")) {
    proposta.avvisi.push_back("Il fornitore " + T("CliFor") + " non è previsto sul prodotto " +
                              prodotto.cod);
  }
  if (una.prezzo.Zero()) una.prezzo = CostiDi(prodotto.cod).ultimo;
  proposta.haDistinta =
      !tipo.tipoDocScaricoDB.empty() && ambiente.Esiste("tessarc", "Db_r", {{"Cod", prodotto.cod}});
}

void FattureCli::Interno::Proponi(RigaDocumento& una, Proposta& proposta) {
  const auto prodotto = warehouse::LeggiProdotto(ambiente, std::string(Rifila(una.codiceRiga)));
  if (!prodotto) return;
  una.codiceRiga = prodotto->cod;
  if (prodotto->fuoriUso)
    proposta.avvisi.push_back("il prodotto " + prodotto->cod + " è fuori uso");
  ProponiDaProdotto(una, *prodotto);
  if (DiFornitori() && Carico()) ProponiPrezzoCarico(una, *prodotto, proposta);
  una.quantitaA = una.quantita;
  una.prezzoA = una.prezzo;
}

void FattureCli::Interno::ChiediDistinta(RigaDocumento& una) {
  const bool calcola =
      ambiente.Dialogo().Domanda(
          una.codiceRiga +
              " ha distinta base\nCALCOLO il COSTO\n(somma dell'ultimo costo dei componenti x "
              "quantità db)\n(la manodopera si può inserire come un elemento nella DB)",
          Bottoni::SiNo, Risposta::Si) == Risposta::Si;
  if (!calcola) return;
  una.prezzo = warehouse::CostoDaDistinta(ambiente, una.codiceRiga,
                                          ImpostazioneAttiva(ambiente, "DbCostoMedio"));
  una.prezzoA = una.prezzo;
}

void FattureCli::Interno::MostraRiga(const RigaDocumento& una) {
  records::MostraCampi(riga, CampiRigaForma(), una);
  codiceVisto = una.codiceRiga;
  quantitaVista = una.quantita;
  prezzoVisto = una.prezzo;
}

void FattureCli::Interno::ProdottoLasciato() {
  RigaDocumento una = righe.Digitata();
  codiceVisto = una.codiceRiga;
  provenienza.clear();
  if (Rifila(una.codiceRiga).empty()) return;
  if (const auto trovato = warehouse::TrovaProdotto(ambiente, una.codiceRiga)) {
    una.codiceRiga = *trovato;
  }
  Proposta proposta;
  Proponi(una, proposta);
  for (const std::string& avviso : proposta.avvisi) Avviso(avviso);
  if (proposta.haDistinta) ChiediDistinta(una);
  MostraRiga(una);
  CalcolaImportoRiga("");
}

void FattureCli::Interno::CalcolaImportoRiga(std::string_view campo) {
  const RigaDocumento una = righe.Digitata();
  // The purchase side follows until it is given figures of its own.
  if (DiFornitori() && UgualeTesto(campo, "Quantita")) {
    if (una.quantitaA == quantitaVista) riga.Scrivi("QuantitaA", una.quantita);
    quantitaVista = una.quantita;
  }
  if (DiFornitori() && UgualeTesto(campo, "Prezzo")) {
    if (una.prezzoA == prezzoVisto) riga.Scrivi("PrezzoA", una.prezzo);
    prezzoVisto = una.prezzo;
  }
  try {
    riga.Scrivi("Importo", ImportoDi(una, regola));
  } catch (const FuoriCampo&) {
    // Told at the row's confirmation: meanwhile there is no amount.
    riga.Scrivi("Importo", Importo());
  }
}

void FattureCli::RigaLasciata(std::string_view campo) {
  Interno& io = *interno_;
  if (!io.righe.InRiga() || SolaLettura()) return;
  if (UgualeTesto(campo, "CodiceRiga")) {
    if (!UgualeTesto(io.riga.Testo("CodiceRiga"), io.codiceVisto)) io.ProdottoLasciato();
  }
  for (const char* nome : {"Quantita", "Prezzo", "Sc1", "Sc2", "Sc3"}) {
    if (UgualeTesto(campo, nome)) io.CalcolaImportoRiga(campo);
  }
  io.Segna();
}

}  // namespace fenalto::documents
