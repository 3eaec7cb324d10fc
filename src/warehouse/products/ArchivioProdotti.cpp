#include "warehouse/products/ArchivioProdotti.h"

#include "core/archives/Importazione.h"
#include "core/archives/Riferimenti.h"
#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/PrimaLinea.h"
#include "core/values/Testo.h"
#include "warehouse/products/CodificaProdotti.h"
#include "warehouse/products/ProdottiInterno.h"

namespace fenalto::warehouse {
namespace {

using archives::ContestoArchivio;
using RigheRiquadro = std::vector<std::string>;

constexpr const char* kConDistinta = "ConDistinta";  ///< remembered of an open product
constexpr const char* kVero = "si";
constexpr const char* kDaConfermare = "bisogna prima confermare l'inserimento del prodotto";

bool HaDistinta(ContestoArchivio& contesto) {
  return !contesto.nuovo &&
         !contesto.ambiente.Cerca("tessarc", "Db_r", {{"Cod", contesto.codicePrima}}, "Cod")
              .Nullo();
}

// --- Opening -------------------------------------------------------------------------------------

void ProponiCodice(ContestoArchivio& contesto) {
  const int cifre = CifreCodifica(contesto.ambiente);
  if (cifre != 0) contesto.scheda.Scrivi("Cod", CodiceSeguente(contesto.ambiente, cifre));
}

void ProdottoAperto(ContestoArchivio& contesto, ParteProdotto& parte) {
  if (contesto.copia) {
    parte.fornitori.Copiati();
  } else {
    parte.fornitori.Leggi(contesto.ambiente, contesto.codicePrima);
  }
  parte.allegati.Collega(contesto.nuovo ? 0 : contesto.scheda.Leggi("ID").Intero(),
                         contesto.codicePrima);
  if (contesto.nuovo) ProponiCodice(contesto);
  if (HaDistinta(contesto)) contesto.memoria[kConDistinta] = kVero;
  contesto.scheda.Scrivi(kTipoCosto,
                         ImpostazioneAttiva(contesto.ambiente, "DbCostoMedio") ? kMedio : kUltimo);
  MostraPrezzo5(contesto, parte);
}

/// The copy tells what it was made from, until its description is typed.
void ProdottoCopiato(ContestoArchivio& contesto, const ParteProdotto& parte) {
  const std::string prima = PrimaLinea(contesto.scheda.Testo("Descrizione"));
  contesto.scheda.Scrivi(
      "Descrizione", prima + "\nnuovo da sdoppiamento prodotto " + contesto.origine + " " + prima);
  MostraPrezzo5(contesto, parte);
}

std::optional<std::string> NonCodificabile(Ambiente& ambiente) {
  return ImpedimentoCodifica(ambiente, CifreCodifica(ambiente));
}

records::StatoCampo StatoProdotto(const ContestoArchivio& contesto, const std::string& nome) {
  if (UgualeTesto(nome, "Cod")) {
    return {.attivo = !contesto.nuovo || CifreCodifica(contesto.ambiente) == 0};
  }
  for (const char* daDistinta : {kCostoDistinta, kTipoCosto, "Command1"}) {
    if (!UgualeTesto(nome, daDistinta)) continue;
    return {.visibile = contesto.memoria.contains(kConDistinta)};
  }
  return {};
}

// --- Writing and erasing -------------------------------------------------------------------------

void ScriviParte(ContestoArchivio& contesto, ParteProdotto& parte) {
  parte.fornitori.Scrivi(contesto.ambiente, contesto.codicePrima, contesto.Codice());
  const Valore id =
      contesto.ambiente.Cerca("tessarc", kTabellaProdotti, {{"Cod", contesto.Codice()}}, "ID");
  parte.allegati.Scrivi(id.Intero(), contesto.Codice());
}

void EliminaParte(ContestoArchivio& contesto, ParteProdotto& parte) {
  FornitoriProdotto::EliminaTutti(contesto.ambiente, contesto.codicePrima);
  parte.allegati.EliminaRighe();
}

/// A product in use is deleted where all its uses are shown.
std::optional<Rifiuto> InUsoAltrove(ContestoArchivio& contesto) {
  const std::vector<std::string> proprie = {"prodottiFor_r"};
  if (!contesto.apri ||
      !archives::CodiceUsato(contesto.ambiente, kTabellaProdotti, contesto.codicePrima, proprie)) {
    return std::nullopt;
  }
  contesto.apri({.funzione = kEliminazione, .codice = contesto.codicePrima});
  return Rifiuto{"", "Cod"};
}

// --- Buttons -------------------------------------------------------------------------------------

archives::PulsanteArchivio AllaFunzione(const char* nome, const char* testo, const char* finestra,
                                        int scheda = -1) {
  return {
      nome, testo, true,
      [finestra, scheda](ContestoArchivio& contesto) -> RigheRiquadro {
        if (contesto.nuovo) return {kDaConfermare};
        if (contesto.apri) {
          contesto.apri({.funzione = finestra, .codice = contesto.codicePrima, .scheda = scheda});
        }
        return {};
      },
      finestra};
}

/// On the choice page: the lists by supplier, bill and component.
archives::PulsanteArchivio Ricerca() {
  constexpr const char* kRicerca = "VisCodiciRiga";
  return {"RicercaProdotti", "Ricerca prodotti", false,
          [](ContestoArchivio& contesto) -> RigheRiquadro {
            if (contesto.apri) contesto.apri({.funzione = kRicerca});
            return {};
          },
          kRicerca};
}

std::vector<archives::PulsanteArchivio> PulsantiProdotto() {
  return {AllaFunzione("Etichette", "Etichette articoli", "Etichette"),
          AllaFunzione("OrdiniClienti", "situazione ordini clienti", "StOrd", 0),
          AllaFunzione("OrdiniFornitori", "situazione ordini fornitori", "StOrd", 1),
          AllaFunzione("EsistenzaLotti", "Esistenza suddivisa per lotti", "StLotti", 0),
          AllaFunzione("Tracciabilita", "tracciabilità lotti", "StLotti", 1),
          AllaFunzione("Distinta", "disintinta base", "DistintaBase"),
          AllaFunzione("VariazionePrezzi", "variazione automatica prezzi", "StProdotti", 2),
          AllaFunzione("Statistiche", "Statistiche vendita", "StStatistiche"),
          AllaFunzione("ListiniPersonalizzati", "listini personalizzati", "Listini"),
          AllaFunzione("StampeMagazzino", "Stampe magazzino", "StProdotti", 0),
          AllaFunzione("CambiaCodice", "Elimina o cambia codice", kEliminazione),
          Ricerca(),
          archives::PulsanteImporta("Prodotti")};
}

}  // namespace

Importo PrezzoConRicarico(Importo ricarico, Importo costoDigitato, Importo ultimo, int decimali) {
  if (ricarico.Zero()) return {};
  const Importo costo = costoDigitato.Zero() ? ultimo : costoDigitato;
  return Arrotonda(costo + costo.Percento(ricarico), decimali, ModoArrotonda::Vicino);
}

bool AggiornaCostoDaDistinta(ContestoArchivio& contesto, const ParteProdotto& parte) {
  if (contesto.nuovo) {
    contesto.ambiente.Dialogo().Messaggio(kDaConfermare, Icona::Avviso);
    return false;
  }
  const bool medio = contesto.scheda.Testo(kTipoCosto) == kMedio;
  contesto.scheda.Scrivi("CostoDigitato",
                         parte.magazzino.costoDaDistinta(contesto.codicePrima, medio));
  MostraPrezzo5(contesto, parte);
  return true;
}

void AggiornaCostoDigitato(ContestoArchivio& contesto, const ParteProdotto& parte) {
  contesto.scheda.Scrivi("CostoDigitato", parte.fornitori.Costo());
  MostraPrezzo5(contesto, parte);
}

archives::DescrizioneArchivio ArchivioProdotti(const std::shared_ptr<ParteProdotto>& parte) {
  archives::DescrizioneArchivio archivio;
  archivio.finestra = kTabellaProdotti;
  archivio.titolo = "Archivio Prodotti di magazzino e codici per righe ddt/fatture";
  archivio.tabella = kTabellaProdotti;
  archivio.ricordato = true;
  archivio.titoloNuovo = "nuovo prodotto";
  archivio.titoloRecord = "prodotto ";
  archivio.caratteriCodice = kCaratteriCodiceProdotto;
  archivio.confermaPassando = true;
  archivio.sdoppiaDaScelta = "Nuovo Da sdoppiamento";
  archivio.tabelleProprie = {"prodottiFor_r"};
  archivio.campiExtra = {{kPrezzo5, Tipo::Testo}, {kTipoCosto, Tipo::Testo}};
  DescriviProdotto(archivio, parte->magazzino);
  archivio.pulsanti = PulsantiProdotto();

  archivio.impedimentoNuovo = NonCodificabile;
  archivio.aperto = [parte](ContestoArchivio& c) { ProdottoAperto(c, *parte); };
  archivio.copiato = [parte](ContestoArchivio& c) { ProdottoCopiato(c, *parte); };
  archivio.lasciato = [parte](ContestoArchivio& c, const std::string& campo) {
    ProdottoLasciato(c, *parte, campo);
  };
  archivio.stato = StatoProdotto;
  archivio.compone = ComponiProdotto;
  archivio.controlliDopoCodice = ControlliProdotto(parte);
  archivio.guardieElimina = {InUsoAltrove};
  archivio.conScrittura = [parte](ContestoArchivio& c) { ScriviParte(c, *parte); };
  archivio.conEliminazione = [parte](ContestoArchivio& c) { EliminaParte(c, *parte); };
  archivio.annulla = [parte](ContestoArchivio& /*c*/) { parte->allegati.Annullati(); };
  archivio.dopoConferma = [parte](ContestoArchivio& /*c*/) { parte->allegati.Confermati(); };
  archivio.dopoEliminazione = [parte](ContestoArchivio& /*c*/) { parte->allegati.EliminaFile(); };
  return archivio;
}

}  // namespace fenalto::warehouse
