#include "screens/warehouse/stock/FormaStProdotti.h"

#include "warehouse/stock/ColonneMagazzino.h"

namespace fenalto::screens {
namespace {

using records::DiCodice;
using records::Digitato;
using records::GenereCampo;

constexpr const char* kPrefissoColonna = "Col_";
constexpr const char* kProdotti = "FrameProdotti";
constexpr const char* kEsistenze = "FrameEsistenze";
constexpr const char* kSolo = "FrameSolo";
constexpr const char* kColonne = "FrameColonne";
constexpr const char* kVariazione = "FrameVariazione";
constexpr const char* kQualiPrezzi = "FramePrezzi";

void CampiProdotti(std::vector<records::CampoForma>& campi) {
  constexpr int kCifreCodice = 14;
  const auto codice = [&](const char* nome, const char* testo, const char* fonte, const char* vuoto,
                          int colonna) {
    campi.push_back(DiCodice(nome, testo, fonte, kCifreCodice)
                        .In(kProdotti)
                        .Segnaposto(vuoto)
                        .Colonna(colonna)
                        .Peso(1));
  };
  codice("DaCodiceRiga", "da prodotto", "prodotti", "dal primo", 0);
  codice("AaCodiceRiga", "a prodotto", "prodotti", "all'ultimo", 1);
  codice("SoloFornitore", "solo fornitore", "fornitori", "tutti", 2);
  codice("SoloCategoriaMag", "solo categoria", "categorieMag", "tutte", 0);
  codice("SoloCategoriaMag2", "solo categoria 2", "categorieMag2", "tutte", 1);
  codice("SoloGruppoMag", "solo gruppo", "gruppiMag", "tutti", 0);
  codice("SoloGruppoMag2", "solo gruppo 2", "gruppiMag2", "tutti", 1);
}

void CampiSituazione(std::vector<records::CampoForma>& campi) {
  constexpr int kCifreMagazzino = 8;
  constexpr int kCifreMesi = 3;
  campi.push_back(DiCodice("SoloMag", "solo magazzino", "magazzini", kCifreMagazzino)
                      .In(kEsistenze)
                      .Segnaposto("tutti")
                      .Peso(1));
  campi.push_back(
      Digitato("FinoAl", "fino al")
          .In(kEsistenze)
          .Accanto()
          .Aiuto("movimenti fino a questo giorno compreso; vuoto: tutti quelli dell'anno"));
  campi.push_back(Digitato("FermiDal", "senza scarichi dal").In(kEsistenze));
  campi.push_back(Digitato("MesiFermi", "o da mesi", kCifreMesi)
                      .In(kEsistenze)
                      .Accanto()
                      .Aiuto("prodotti che non escono da tanti mesi, contati all'indietro da 'fino "
                             "al' o da oggi"));
  campi.push_back(Digitato("Ordine")
                      .Di(GenereCampo::Opzioni)
                      .In(kEsistenze)
                      .AlMargine()
                      .Scelte({{"False", "per codice", "PerCodice"},
                               {"True", "per descrizione", "PerDescrizione"}}));
  const auto solo = [&](const char* nome, const char* testo) {
    campi.push_back(Digitato(nome, testo).In(kSolo).AlMargine());
  };
  solo("SoloSottoScorta", "Solo prodotti sotto scorta");
  solo("SoloEsistenti", "solo prodotti con esistenza diversa da zero");
  solo("SoloNegativi", "solo prodotti con esistenza negativa");
  constexpr int kPerRiga = 6;
  int posto = 0;
  for (const auto& colonna : warehouse::ColonneMagazzino()) {
    campi.push_back(Digitato(CampoColonna(colonna.nome), colonna.scritta)
                        .In(kColonne)
                        .AlMargine()
                        .Colonna(posto++ % kPerRiga));
  }
  campi.push_back(Digitato("StampoSoloDiversi0", "Stampo solo se almeno un dato è diverso da 0")
                      .In(kColonne)
                      .AlMargine()
                      .Colonna(posto % kPerRiga)
                      .Colonne(kPerRiga - posto % kPerRiga));
}

void CampiPrezzi(std::vector<records::CampoForma>& campi) {
  campi.push_back(Digitato("PercAumPr", "percentuale", 8)
                      .In(kVariazione)
                      .Nota("% di aumento; con il meno davanti, di diminuzione"));
  campi.push_back(Digitato("BasePrezzo")
                      .Di(GenereCampo::Opzioni)
                      .In(kVariazione)
                      .AlMargine()
                      .Scelte({{"1", "ricalcolo prezzo in base al prezzo 1,2,3 attuale", "Option1"},
                               {"2", "ricalcolo prezzo in base al 'costo ultimo'", "Option3"},
                               {"3", "ricalcolo prezzo in base al 'costo digitato'", "Option2"}}));
  const auto prezzo = [&](const char* nome, const char* testo) {
    campi.push_back(Digitato(nome, testo).In(kQualiPrezzi).AlMargine());
  };
  prezzo("Prezzo1", "Prezzo 1");
  prezzo("Prezzo2", "Prezzo 2");
  prezzo("Prezzo3", "Prezzo 3");
  prezzo("PrezzoIva", "Prezzo con Iva");
}

}  // namespace

std::string CampoColonna(const std::string& colonna) {
  return kPrefissoColonna + colonna;
}

bool DiColonna(const std::string& campo) {
  return campo.starts_with(kPrefissoColonna);
}

records::DescrizioneForma FormaStProdotti() {
  records::DescrizioneForma forma;
  CampiProdotti(forma.campi);
  CampiSituazione(forma.campi);
  CampiPrezzi(forma.campi);
  forma.riquadri = {
      {.nome = kProdotti, .titolo = "Prodotti", .largo = true},
      {.nome = kEsistenze, .titolo = "Esistenze", .pagina = kPaginaSituazione},
      {.nome = kSolo, .titolo = "Mostro", .pagina = kPaginaSituazione, .accanto = true},
      {.nome = kColonne, .titolo = "Colonne", .pagina = kPaginaSituazione, .largo = true},
      {.nome = kVariazione, .titolo = "Variazione", .pagina = kPaginaPrezzi},
      {.nome = kQualiPrezzi, .titolo = "Prezzi", .pagina = kPaginaPrezzi, .accanto = true}};
  forma.stretta = true;
  return forma;
}

}  // namespace fenalto::screens
