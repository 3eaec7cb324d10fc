#include "documents/types/ImpostazioniDocumenti.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/session/VariazioneDitta.h"

namespace fenalto::documents {
namespace {

using records::CampoForma;
using records::Digitato;

constexpr const char* kDiNumeri = "RiquadroNumeri";
constexpr const char* kDiMagazzino = "RiquadroMagazzino";
constexpr const char* kDiProdotti = "RiquadroProdotti";

struct VoceImpostazione {
  const char* chiave;
  const char* didascalia;
  const char* riquadro;
};

constexpr auto kVociImpostazioni = std::to_array<VoceImpostazione>(
    {{"DecP", "decimali prezzi (da 2 a 4)", kDiNumeri},
     {"DecQ", "decimali quantità (da 0 a 4)", kDiNumeri},
     {"ArrotImporto", "tipo arrot.importo righe fatture: al centesimo (senza spunta si tronca)",
      kDiNumeri},
     {"PrezziDaOrdine", "In fatture e ddt non propongo prezzi e descrizione da ordini/offerte",
      kDiNumeri},
     {"PrezziIvatiOrdCli", "Ordini clienti con prezzi ivati e scorporo", kDiNumeri},
     {"LottoDtScad", "Movimentazione magazzino a lotti con data scadenza", kDiMagazzino},
     {"MagObbligatorio",
      "Magazzini esterni o depositi: obbligo di inserire il 'codice magazzino' nella registrazione "
      "dei movimenti",
      kDiMagazzino},
     {"PropongoCostoDigitato",
      "propongo il 'costo digitato' nei carichi magazzino ed ordini fornitori e commesse",
      kDiMagazzino},
     {"DbCostoMedio",
      "Valorizzazione distinta base nello scarico automatico componenti base al costo medio (con "
      "spunta) o costo ultimo (senza",
      kDiMagazzino},
     {"FornNonPrevisto",
      "Carichi da fornitore: segnalo se si carica da un fornitore non previstro sul prodotto",
      kDiMagazzino},
     {"BarcodeUnivoco", "Controllo univocità dei codici a barre dei prodotti", kDiProdotti},
     {"Imm_Ass_CodiciRiga", "videata immagini e documenti associati ai prodotti", kDiProdotti},
     {"CommesseVecchioSistema", "Commesse: imputazione registrazioni contabili con vecchio sistema",
      kDiProdotti}});

/// As the company's own window has them; those that it hasn't are flags.
std::vector<CampoImpostazione> CampiDocumenti() {
  const auto dellaDitta = VariazioneDitta::Campi();
  std::vector<CampoImpostazione> campi;
  for (const VoceImpostazione& voce : kVociImpostazioni) {
    const auto sua = std::ranges::find_if(dellaDitta, [&](const auto& campo) {
      return std::string_view(campo.chiave) == voce.chiave;
    });
    campi.push_back(sua == dellaDitta.end() ? CampoImpostazione{voce.chiave, voce.chiave,
                                                                CampoImpostazione::Genere::Uno}
                                            : *sua);
  }
  return campi;
}

}  // namespace

ImpostazioniDocumenti::ImpostazioniDocumenti(Ambiente& ambiente)
    : ambiente_(ambiente), campi_(ambiente, CampiDocumenti()) {
  Rileggi();
}

bool ImpostazioniDocumenti::Salva() {
  if (!campi_.Ammessi() || !campi_.Scrivi()) return false;
  ambiente_.Dialogo().Annuncia("Impostazioni salvate");
  Rileggi();
  return true;
}

records::DescrizioneForma FormaImpostazioniDocumenti() {
  constexpr int kCifra = 5;
  records::DescrizioneForma forma;
  forma.riquadri = {{kDiNumeri, "Prezzi, quantità, importi", "", true},
                    {kDiMagazzino, "Magazzino", "", true},
                    {kDiProdotti, "Prodotti e commesse", "", true}};
  for (const VoceImpostazione& voce : kVociImpostazioni) {
    CampoForma campo = Digitato(voce.chiave, voce.didascalia).In(voce.riquadro);
    if (std::string_view(voce.chiave).starts_with("Dec")) {
      campo.caratteri = kCifra;
    } else {
      campo.alMargine = true;
    }
    forma.campi.push_back(std::move(campo));
  }
  return forma;
}

}  // namespace fenalto::documents
