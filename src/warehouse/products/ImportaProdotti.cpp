#include "warehouse/products/ImportaProdotti.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "warehouse/products/CodificaProdotti.h"
#include "warehouse/products/FileProdotto.h"
#include "warehouse/products/Prodotto.h"

namespace fenalto::warehouse {
namespace {

using Motivi = std::vector<archives::MotivoImporta>;
using Campi = std::vector<archives::CampoImporta>;

constexpr std::size_t kPiuLinee = 4'000;
constexpr std::size_t kUnita = 5;
constexpr std::size_t kBarcode = 20;
constexpr std::size_t kPosizione = 12;
constexpr std::size_t kTestoLibero = 80;
constexpr std::pair<int, int> kPercentuale{0, 100};
constexpr const char* kFornitori = "prodottiFor_r";

/// A price and its discount.
void Prezzo(Campi& campi, const char* prezzo, const char* didascalia,
            std::vector<std::string> sinonimi, const char* sconto, const char* didascaliaSconto,
            std::vector<std::string> sinonimiSconto) {
  campi.push_back({.nome = prezzo, .didascalia = didascalia, .sinonimi = std::move(sinonimi)});
  campi.push_back({.nome = sconto,
                   .didascalia = didascaliaSconto,
                   .sinonimi = std::move(sinonimiSconto),
                   .limiti = kPercentuale});
}

Campi Identita() {
  return {
      {.nome = "Cod",
       .didascalia = "Codice",
       .sinonimi = {"Codice articolo", "Cod. articolo", "Articolo", "Codice prodotto",
                    "Cod. prodotto", "Prodotto", "Cod. art.", "SKU", "Id"},
       .obbligatorio = true,
       .lunghezza = kCaratteriCodiceProdotto},
      {.nome = "Descrizione",
       .didascalia = "Descrizione",
       .sinonimi = {"Descrizione articolo", "Descrizione prodotto", "Nome", "Denominazione",
                    "Descr.", "Titolo"},
       .obbligatorio = true,
       .lunghezza = kPiuLinee},
      {.nome = "Descrizione1",
       .didascalia = "Descrizione 1",
       .sinonimi = {"Descrizione aggiuntiva", "Descrizione estesa", "Descrizione 2"},
       .lunghezza = kTestoLibero},
      {.nome = "Descrizione2",
       .didascalia = "Seconda descrizione aggiuntiva",
       .sinonimi = {"Descrizione 3", "Note", "Descrizione lunga"},
       .lunghezza = kTestoLibero},
      {.nome = "um",
       .didascalia = "Unità di misura",
       .sinonimi = {"UM", "U.M.", "Unità", "Um vendita", "Unità misura"},
       .lunghezza = kUnita},
      {.nome = "uma",
       .didascalia = "Unità di misura d'acquisto",
       .sinonimi = {"UM acquisto", "U.M. acquisto", "Uma", "Unità acquisto"},
       .lunghezza = kUnita},
      {.nome = "ConversioneA",
       .didascalia = "Conversione unità d'acquisto",
       .sinonimi = {"Conversione", "Fattore di conversione", "Coefficiente conversione"}},
      {.nome = "Barcode",
       .didascalia = "Codice a barre",
       .sinonimi = {"Barcode", "EAN", "EAN13", "Cod. a barre", "Cod. barre", "GTIN", "UPC"},
       .lunghezza = kBarcode},
  };
}

Campi Prezzi() {
  Campi campi;
  Prezzo(
      campi, "Prezzo", "Prezzo 1",
      {"Prezzo", "Prezzo vendita", "Prezzo di vendita", "Prezzo listino", "Listino 1", "Listino"},
      "Sc", "Sconto prezzo 1", {"Sconto", "Sconto 1", "Sc1"});
  Prezzo(campi, "Prezzo2", "Prezzo 2", {"Listino 2", "Prezzo ingrosso"}, "Sc2", "Sconto prezzo 2",
         {"Sconto 2"});
  Prezzo(campi, "Prezzo3", "Prezzo 3", {"Listino 3"}, "Sc3", "Sconto prezzo 3", {"Sconto 3"});
  campi.push_back({.nome = "PrezzoIva",
                   .didascalia = "Prezzo con IVA",
                   .sinonimi = {"Prezzo ivato", "Prezzo al pubblico", "Prezzo IVA inclusa",
                                "Prezzo iva compresa"}});
  campi.push_back({.nome = "Ricarico",
                   .didascalia = "Ricarico %",
                   .sinonimi = {"Ricarico", "% ricarico", "Margine %"}});
  Prezzo(campi, "PrezzoCampagna", "Prezzo campagna",
         {"Prezzo promozione", "Prezzo offerta", "Prezzo promo"}, "ScCampagna", "Sconto campagna",
         {"Sconto promozione"});
  campi.push_back({.nome = "ValidDal",
                   .didascalia = "Campagna valida dal",
                   .sinonimi = {"Valido dal", "Inizio promozione"}});
  campi.push_back({.nome = "ValidAl",
                   .didascalia = "Campagna valida al",
                   .sinonimi = {"Valido al", "Fine promozione"}});
  campi.push_back({.nome = "DtAggPrezzi",
                   .didascalia = "Data aggiornamento prezzi",
                   .sinonimi = {"Data prezzi", "Ultimo aggiornamento"}});
  campi.push_back({.nome = "CostoDigitato",
                   .didascalia = "Costo digitato",
                   .sinonimi = {"Costo", "Prezzo acquisto", "Prezzo di acquisto", "Costo standard",
                                "Ultimo costo"}});
  return campi;
}

Campi Altri() {
  return {
      {.nome = "CodIva",
       .didascalia = "Codice IVA",
       .sinonimi = {"Cod. IVA", "IVA", "Aliquota", "Aliquota IVA", "% IVA"},
       .riferimento = "CodiciIva"},
      {.nome = "Conto",
       .didascalia = "Conto",
       .sinonimi = {"Conto ricavi", "Contropartita", "Conto contabile", "Conto vendite"},
       .riferimento = "Conti"},
      {.nome = "Prov",
       .didascalia = "Provvigione %",
       .sinonimi = {"Provvigione", "% provvigione"},
       .limiti = kPercentuale},
      {.nome = "CategoriaMag",
       .didascalia = "Categoria",
       .sinonimi = {"Cod. categoria", "Categoria merceologica", "Famiglia"},
       .riferimento = "CategorieMag"},
      {.nome = "CategoriaMag2",
       .didascalia = "Categoria 2",
       .sinonimi = {"Sottocategoria", "Sottofamiglia"},
       .riferimento = "CategorieMag2"},
      {.nome = "GruppoMag",
       .didascalia = "Gruppo",
       .sinonimi = {"Cod. gruppo", "Gruppo merceologico"},
       .riferimento = "GruppiMag"},
      {.nome = "GruppoMag2",
       .didascalia = "Gruppo 2",
       .sinonimi = {"Sottogruppo", "Marca"},
       .riferimento = "GruppiMag2"},
      {.nome = "QMinRiordino",
       .didascalia = "Quantità minima di riordino",
       .sinonimi = {"Q.tà minima", "Lotto di riordino", "Quantità riordino"}},
      {.nome = "Scorta",
       .didascalia = "Scorta minima",
       .sinonimi = {"Scorta", "Sottoscorta", "Scorta di sicurezza"}},
      {.nome = "PosMag",
       .didascalia = "Posizione in magazzino",
       .sinonimi = {"Posizione", "Ubicazione", "Scaffale"},
       .lunghezza = kPosizione},
      {.nome = "ggScad",
       .didascalia = "Giorni di scadenza",
       .sinonimi = {"Giorni scadenza", "Durata (giorni)", "Shelf life"},
       .limiti = std::pair{0, 36'500}},
      {.nome = "FileDescrizione",
       .didascalia = "File del documento",
       .sinonimi = {"Documento", "Scheda tecnica"},
       .lunghezza = kCaratteriFile},
      {.nome = "FileImmagine",
       .didascalia = "File dell'immagine",
       .sinonimi = {"Immagine", "Foto"},
       .lunghezza = kCaratteriFile},
      {.nome = "FuoriUso",
       .didascalia = "Fuori uso",
       .sinonimi = {"Obsoleto", "Dismesso", "Esaurito", "Fuori produzione"}},
  };
}

/// Fields of the row that a supplier has on the product.
Campi DelFornitore() {
  Campi campi{
      {.nome = "Fornitore",
       .didascalia = "Fornitore",
       .sinonimi = {"Codice fornitore", "Cod. fornitore", "Fornitore abituale"},
       .riferimento = "Fornitori"},
      {.nome = "FornitoreCodice",
       .didascalia = "Codice presso il fornitore",
       .sinonimi = {"Codice articolo fornitore", "Cod. art. fornitore", "Rif. fornitore",
                    "Codprfor", "Codice prodotto fornitore"}},
      {.nome = "FornitoreDescrizione",
       .didascalia = "Descrizione per ordini",
       .sinonimi = {"Descrizione fornitore"},
       .lunghezza = kPiuLinee},
      {.nome = "FornitoreCosto",
       .didascalia = "Costo del fornitore",
       .sinonimi = {"Costo fornitore", "Prezzo fornitore", "Listino fornitore"}},
      {.nome = "FornitoreSc1",
       .didascalia = "Sconto 1 del fornitore",
       .sinonimi = {"Sconto fornitore", "Sconto fornitore 1"},
       .limiti = kPercentuale},
      {.nome = "FornitoreSc2",
       .didascalia = "Sconto 2 del fornitore",
       .sinonimi = {"Sconto fornitore 2"},
       .limiti = kPercentuale},
      {.nome = "FornitoreSc3",
       .didascalia = "Sconto 3 del fornitore",
       .sinonimi = {"Sconto fornitore 3"},
       .limiti = kPercentuale},
  };
  constexpr std::array kColonne = {"Fornitore", "codprfor", "Descrizione", "Prezzo",
                                   "Sc1",       "Sc2",      "Sc3"};
  for (std::size_t i = 0; i < campi.size(); ++i) {
    campi[i].accanto = kFornitori;
    campi[i].colonna = kColonne[i];
  }
  return campi;
}

const Campi& CampiDelFornitore() {
  static const Campi campi = DelFornitore();
  return campi;
}

std::string FornitoreDi(const archives::RigaImporta& riga) {
  const auto campo = std::ranges::find(riga.accanto, "Fornitore", &Coppia::first);
  return campo == riga.accanto.end() ? std::string() : campo->second.Testo();
}

bool Vuoto(const Valore& valore) {
  return valore.Nullo() || valore.Testo().empty() ||
         (valore.Tipo() == Tipo::Importo && valore.Importo().Zero());
}

/// With automatic coding a code of another shape would stop the next new product.
void ControllaCodice(archives::ContestoImporta& contesto, const archives::RigaImporta& riga,
                     Motivi& motivi) {
  const int impostate = CifreCodifica(contesto.Sessione());
  if (!riga.nuova || impostate == 0) return;
  const std::string codice = riga.Testo("Cod");
  const bool numero = codice.find_first_not_of("0123456789") == std::string::npos;
  if (numero && std::cmp_equal(codice.size(), impostate)) return;
  const std::string cifre = std::to_string(impostate);
  motivi.push_back({"Cod", "è impostata la codifica automatica a " + cifre +
                               " cifre: il codice dev'essere di " + cifre + " cifre"});
}

void ControllaBarcode(archives::ContestoImporta& contesto, const archives::RigaImporta& riga,
                      Motivi& motivi) {
  const std::string barcode = riga.Testo("Barcode");
  if (barcode.empty() || !ImpostazioneAttiva(contesto.Sessione(), "BarcodeUnivoco")) return;
  const std::string altro = contesto.Proposto(kTabellaProdotti, "Barcode", barcode);
  if (altro.empty() || UgualeTesto(altro, riga.Testo("Cod"))) return;
  motivi.push_back({"Barcode", "codice a barre già esistente su cod " + altro});
}

/// The day of the prices follows them, unless the file gives it.
void DataPrezzi(archives::ContestoImporta& contesto, archives::RigaImporta& riga) {
  if (riga.Ha("DtAggPrezzi")) return;
  const std::string codice = riga.Testo("Cod");
  for (const char* prezzo :
       {"Prezzo", "Sc", "Prezzo2", "Sc2", "Prezzo3", "Sc3", "PrezzoIva", "Ricarico"}) {
    if (!riga.Ha(prezzo)) continue;
    const bool cambiato =
        riga.nuova ? !Vuoto(riga.Leggi(prezzo))
                   : contesto.Campo(kTabellaProdotti, codice, prezzo) != riga.Leggi(prezzo);
    if (cambiato) return riga.Scrivi("DtAggPrezzi", contesto.Sessione().Ora().Oggi());
  }
}

void ControllaSegniENomi(const archives::RigaImporta& riga, Motivi& motivi) {
  for (const auto& [campo, motivo] :
       {std::pair{"Scorta", "la scorta non può essere negativa"},
        std::pair{"QMinRiordino", "la quantità minima di riordino non può essere negativa"},
        std::pair{"ConversioneA", "la conversione non può essere negativa"}}) {
    if (riga.Ha(campo) && riga.Leggi(campo).Importo().Negativo()) {
      motivi.push_back({campo, motivo});
    }
  }
  for (const char* campo : {"FileImmagine", "FileDescrizione"}) {
    if (riga.Testo(campo).find_first_of("/\\") != std::string::npos) {
      motivi.push_back({campo, "indicare il solo nome del file, senza la cartella"});
    }
  }
}

Motivi Controlla(archives::ContestoImporta& contesto, archives::RigaImporta& riga) {
  Motivi motivi;
  const bool altriDati =
      std::ranges::any_of(riga.accanto, [](const Coppia& coppia) { return !Vuoto(coppia.second); });
  if (altriDati && FornitoreDi(riga).empty()) motivi.push_back({"Fornitore", "manca fornitore"});
  if (riga.seguito) return motivi;
  ControllaCodice(contesto, riga, motivi);
  ControllaBarcode(contesto, riga, motivi);
  ControllaSegniENomi(riga, motivi);
  if (const std::string conto = riga.Testo("Conto");
      !conto.empty() && contesto.Campo("Conti", conto, "CFP") != Valore("P")) {
    motivi.push_back({"Conto", "il conto " + conto + " è un riepilogativo di clienti o fornitori"});
  }
  const auto resta = [&](const char* campo) {
    const Valore valore = riga.Ha(campo) || riga.nuova
                              ? riga.Leggi(campo)
                              : contesto.Campo(kTabellaProdotti, riga.Testo("Cod"), campo);
    return valore.Nullo() ? Data() : valore.Data();
  };
  const bool date = riga.Ha("ValidDal") || riga.Ha("ValidAl");
  if (date && !resta("ValidAl").Nulla() && resta("ValidAl") < resta("ValidDal")) {
    motivi.push_back({"ValidAl", "la campagna finisce prima di cominciare"});
  }
  DataPrezzi(contesto, riga);
  return motivi;
}

/// The supplier's row: the one that it has on the product, else a new one behind the others.
void ScriviFornitore(Ambiente& ambiente, const archives::RigaImporta& riga) {
  const std::string fornitore = FornitoreDi(riga);
  if (fornitore.empty()) return;
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::string delProdotto =
      std::string(" from ") + kFornitori + " where " + sql::Criterio("Cod", "=", riga.Leggi("Cod"));
  std::vector<Coppia> valori;
  std::string cambia;
  for (const auto& [nome, valore] : riga.accanto) {
    const auto campo = std::ranges::find(CampiDelFornitore(), nome, &archives::CampoImporta::nome);
    valori.emplace_back(campo->colonna, valore);
    cambia += (cambia.empty() ? "" : ",") + sql::Criterio(campo->colonna, "=", valore);
  }
  const std::string suo = " and " + sql::Criterio("Fornitore", "=", fornitore);
  const Valore posi = tessarc.Singolo("select top 1 Posi" + delProdotto + suo);
  if (!posi.Nullo()) {
    tessarc.Esegui(std::string("update ") + kFornitori + " set " + cambia + " where " +
                   sql::Criterio("Cod", "=", riga.Leggi("Cod")) + " and " +
                   sql::Criterio("Posi", "=", posi));
    return;
  }
  const std::string cod = tessarc
                              .Singolo("select Cod from CodiciRiga where " +
                                       sql::Criterio("Cod", "=", riga.Leggi("Cod")))
                              .Testo();
  valori.emplace_back("Cod", cod);
  valori.emplace_back("Posi", tessarc.Singolo("select Max(Posi)" + delProdotto).Intero() + 1);
  tessarc.Inserisci(kFornitori, valori);
}

}  // namespace

archives::GenereImporta GenereImportaProdotti() {
  archives::GenereImporta prodotti;
  prodotti.nome = "Prodotti";
  prodotti.titolo = "prodotti";
  prodotti.tabelle = {kTabellaProdotti};
  prodotti.campi = Identita();
  for (const Campi& altri : {Prezzi(), Altri(), CampiDelFornitore()}) {
    prodotti.campi.insert(prodotti.campi.end(), altri.begin(), altri.end());
  }
  prodotti.controlla = Controlla;
  prodotti.conScrittura = ScriviFornitore;
  prodotti.ripetutoPer = "Fornitore";
  return prodotti;
}

}  // namespace fenalto::warehouse
