// Rules of products: what a field that was left brings with it, what stops a confirmation.
#include <algorithm>
#include <array>

#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "warehouse/products/CodificaProdotti.h"
#include "warehouse/products/ProdottiInterno.h"

namespace fenalto::warehouse {
namespace {

constexpr const char* kBarcodeAmmesso = "BarcodeAmmesso";  ///< one wanted though it's taken
constexpr const char* kSiProsegue = "si";

/// Columns whose change is a change of prices.
constexpr std::array kPrezzi = {"Prezzo",  "Sc",  "Prezzo2",   "Sc2",
                                "Prezzo3", "Sc3", "PrezzoIva", "Ricarico"};

/// True when no other product has that barcode, or the user wants it all the same.
bool AmmetteBarcode(archives::ContestoArchivio& contesto) {
  const std::string barcode(Rifila(contesto.scheda.Testo("Barcode")));
  if (barcode.empty() || UgualeTesto(barcode, contesto.memoria[kBarcodeAmmesso]) ||
      (!contesto.nuovo && UgualeTesto(barcode, Rifila(contesto.prima.Testo("Barcode")))) ||
      !ImpostazioneAttiva(contesto.ambiente, "BarcodeUnivoco")) {
    return true;
  }
  const Valore altro = contesto.ambiente.ArchivioDi("tessarc").Singolo(
      "select COD FROM CODICIRIGA WHERE " + sql::Criterio("BARCODE", "=", barcode) + " AND " +
      sql::Criterio("COD", "<>", contesto.nuovo ? contesto.Codice() : contesto.codicePrima));
  if (altro.Nullo()) return true;
  if (!contesto.ambiente.Dialogo().Conferma("codice a barre già esistente su cod " + altro.Testo() +
                                            "\nproseguo ugualmente")) {
    return false;
  }
  contesto.memoria[kBarcodeAmmesso] = barcode;
  return true;
}

/// A copied product comes with a barcode that nobody typed.
std::optional<Rifiuto> BarcodeDiAltri(archives::ContestoArchivio& contesto) {
  if (AmmetteBarcode(contesto)) return std::nullopt;
  return Rifiuto{"", "Barcode"};
}

std::optional<Rifiuto> ScontiTroppoAlti(archives::ContestoArchivio& contesto) {
  for (const char* campo : {"Sc", "Sc2", "Sc3", "ScCampagna"}) {
    if (contesto.scheda.Leggi(campo).Importo() > kScontoMassimo) {
      return Rifiuto{kScontoTroppoAlto, campo};
    }
  }
  return std::nullopt;
}

std::optional<Rifiuto> SottoZero(archives::ContestoArchivio& contesto) {
  struct Positivo {
    const char* campo;
    const char* messaggio;
  };
  for (const auto& [campo, messaggio] :
       {Positivo{"Scorta", "la scorta non può essere negativa"},
        Positivo{"QMinRiordino", "la quantità minima di riordino non può essere negativa"},
        Positivo{"ConversioneA", "la conversione non può essere negativa"}}) {
    if (contesto.scheda.Leggi(campo).Importo() < Importo()) return Rifiuto{messaggio, campo};
  }
  if (contesto.scheda.Leggi("ggScad").Intero() < 0) {
    return Rifiuto{"i giorni di scadenza non possono essere negativi", "ggScad"};
  }
  return std::nullopt;
}

std::optional<Rifiuto> CampagnaRovescia(archives::ContestoArchivio& contesto) {
  const Data dal = contesto.scheda.Leggi("ValidDal").Data();
  const Data al = contesto.scheda.Leggi("ValidAl").Data();
  if (al.Nulla() || dal <= al) return std::nullopt;
  return Rifiuto{"la campagna finisce il " + al.Testo() + ", prima di cominciare", "ValidAl"};
}

/// Folders of images and documents hold the files themselves: a path would lead out of them.
std::optional<Rifiuto> FileAltrove(archives::ContestoArchivio& contesto) {
  for (const char* campo : {"FileImmagine", "FileDescrizione"}) {
    const std::string nome = contesto.scheda.Testo(campo);
    if (nome == contesto.prima.Testo(campo) || nome.find_first_of("/\\") == std::string::npos) {
      continue;
    }
    return Rifiuto{"indicare il solo nome del file, senza la cartella: " + nome, campo};
  }
  return std::nullopt;
}

std::optional<Rifiuto> FornitoriCambiati(archives::ContestoArchivio& contesto,
                                         const ParteProdotto& parte) {
  if (contesto.nuovo || contesto.memoria["fornitori"] == kSiProsegue ||
      !parte.fornitori.CambiatiAltrove(contesto.ambiente, contesto.codicePrima)) {
    return std::nullopt;
  }
  if (!contesto.ambiente.Dialogo().Conferma(
          "i fornitori del prodotto " + contesto.codicePrima +
          " sono stati cambiati altrove mentre erano aperti qui.\nLi sostituisco con quelli sullo "
          "schermo ?")) {
    return Rifiuto{"", ""};
  }
  contesto.memoria["fornitori"] = kSiProsegue;
  return std::nullopt;
}

}  // namespace

void MostraPrezzo5(archives::ContestoArchivio& contesto, const ParteProdotto& parte) {
  Scheda& scheda = contesto.scheda;
  const int decimali = parte.magazzino.decimaliPrezzo;
  const Importo ricarico = scheda.Leggi("Ricarico").Importo();
  const Importo digitato = scheda.Leggi("CostoDigitato").Importo();
  const bool serve = !ricarico.Zero() && digitato.Zero() && !contesto.nuovo;
  const Importo ultimo = serve && parte.magazzino.costoUltimo
                             ? parte.magazzino.costoUltimo(contesto.codicePrima)
                             : Importo();
  scheda.Scrivi(kPrezzo5,
                ScriviImporto(PrezzoConRicarico(ricarico, digitato, ultimo, decimali), decimali));
}

void ProdottoLasciato(archives::ContestoArchivio& contesto, const ParteProdotto& parte,
                      const std::string& campo) {
  if (UgualeTesto(campo, "Barcode")) {
    if (!AmmetteBarcode(contesto)) contesto.foco = "Barcode";
  } else if (UgualeTesto(campo, "Ricarico") || UgualeTesto(campo, "CostoDigitato")) {
    MostraPrezzo5(contesto, parte);
  }
}

void ComponiProdotto(archives::ContestoArchivio& contesto) {
  Scheda& scheda = contesto.scheda;
  scheda.Scrivi("Barcode", std::string(Rifila(scheda.Testo("Barcode"))));
  const int cifre = contesto.nuovo ? CifreCodifica(contesto.ambiente) : 0;
  if (cifre != 0 && !ImpedimentoCodifica(contesto.ambiente, cifre)) {
    // Another station may have taken the code that was proposed.
    scheda.Scrivi("Cod", CodiceSeguente(contesto.ambiente, cifre));
  }
  const bool nuovi = std::ranges::any_of(kPrezzi, [&](const char* campo) {
    return scheda.Leggi(campo).Importo() != contesto.prima.Leggi(campo).Importo();
  });
  const bool digitata =
      scheda.Leggi("DtAggPrezzi").Data() != contesto.prima.Leggi("DtAggPrezzi").Data();
  if (nuovi && (!digitata || contesto.copia)) {
    scheda.Scrivi("DtAggPrezzi", contesto.ambiente.Ora().Oggi());
  }
}

std::vector<archives::DescrizioneArchivio::Controllo> ControlliProdotto(
    const std::shared_ptr<ParteProdotto>& parte) {
  return {BarcodeDiAltri,
          ScontiTroppoAlti,
          SottoZero,
          CampagnaRovescia,
          FileAltrove,
          [parte](archives::ContestoArchivio& c) { return FornitoriCambiati(c, *parte); }};
}

}  // namespace fenalto::warehouse
