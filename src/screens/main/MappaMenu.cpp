#include "screens/main/MappaMenu.h"

#include <array>

namespace fenalto::screens {
namespace {

constexpr auto kVoci = std::to_array<VoceMenu>({
    {"Archivi|Clienti", "Archivio", "Clienti", 30},
    {"Archivi|Clienti", "Stampa anagrafica e contabile", "STClienti", 99},
    {"Archivi|Clienti", "Stampa etichette e buste", "EtichetteCliFor", 99, 0},
    {"Archivi|Fornitori", "Archivio", "Fornitori", 0},
    {"Archivi|Fornitori", "Stampa anagrafica e contabile", "STFornitori", 99},
    {"Archivi|Fornitori", "Stampa etichette e buste", "EtichetteCliFor", 99, 1},
    {"Archivi|Contabilità: conti/causali/registri...|Piano dei Conti", "Mastri", "Mastri", 99},
    {"Archivi|Contabilità: conti/causali/registri...|Piano dei Conti", "Conti", "Conti", 99},
    {"Archivi|Contabilità: conti/causali/registri...|Piano dei Conti", "Tipi Riclassificazione",
     "TipiRiclassificazione", 99},
    {"Archivi|Contabilità: conti/causali/registri...|Piano dei Conti", "Codici Riclassificazione",
     "Riclassificazione", 99},
    {"Archivi|Contabilità: conti/causali/registri...", "Causali", "Causali", 99},
    {"Archivi|Contabilità: conti/causali/registri...", "Codici Iva", "CodiciIva", 99},
    {"Archivi|Contabilità: conti/causali/registri...", "Registri Iva", "RegistriIva", 99},
    {"Archivi|Contabilità: conti/causali/registri...", "Categorie ripartiz. acq.", "Categorie", 99},
    {"Archivi|Contabilità: conti/causali/registri...", "Tipi ritenuta per fatture emesse",
     "Ritenute", 99, -1, Esclusiva::No, "ApreRitenuteAcconto", true},
    {"Archivi|Prodotti, listini, distinta base, ...", "Prodotti", "CodiciRiga", 30},
    {"Archivi|Prodotti, listini, distinta base, ...", "Listini", "Listini", 50},
    {"Archivi|Prodotti, listini, distinta base, ...", "Distinta Base", "DistintaBase", 0},
    {"Archivi|Prodotti, listini, distinta base, ...|Categorie e gruppi prodotti",
     "Categorie prodotti", "CategorieMag", 30},
    {"Archivi|Prodotti, listini, distinta base, ...|Categorie e gruppi prodotti",
     "Categorie 2 prodotti", "CategorieMag2", 30},
    {"Archivi|Prodotti, listini, distinta base, ...|Categorie e gruppi prodotti", "Gruppi prodotti",
     "GruppiMag", 30},
    {"Archivi|Prodotti, listini, distinta base, ...|Categorie e gruppi prodotti",
     "Gruppi 2 prodotti", "GruppiMag2", 30},
    {"Archivi", "Agenti", "Agenti", 99},
    {"Archivi", "Codici Pagamento", "CodiciPagamento", 99},
    {"Magazzino/Fatture/DDT/Ordini", "Emissione Fatture ddt e movimenti magazzino", "FattureCli",
     30},
    {"Magazzino/Fatture/DDT/Ordini", "Ordini Clienti/Offerte/Preventivi", "OrdiniCli", 50},
    {"Magazzino/Fatture/DDT/Ordini", "Ordini Fornitori e richieste offerta", "OrdiniFor", 30},
    {"Magazzino/Fatture/DDT/Ordini", "Commesse,Cantieri,Impianti,Riparazioni", "Commesse", 50},
    {"Magazzino/Fatture/DDT/Ordini", "Carico Produzione e scarico componenti e Lotti",
     "ScaricoDbLotti", 30},
    {"Magazzino/Fatture/DDT/Ordini|STAMPE e interrogazioni (magazzino,ordini,distinta base)",
     "Elenco prodotti, esistenze, lotti e funzioni varie", "StProdotti", 30},
    {"Magazzino/Fatture/DDT/Ordini|STAMPE e interrogazioni (magazzino,ordini,distinta base)",
     "Movimenti e fatturato per cliente/fornitore", "StMovxCliFor", 99},
    {"Magazzino/Fatture/DDT/Ordini|STAMPE e interrogazioni (magazzino,ordini,distinta base)",
     "Elenco documenti per tipo", "StMovxTipo", 99},
    {"Magazzino/Fatture/DDT/Ordini|STAMPE e interrogazioni (magazzino,ordini,distinta base)",
     "Statistiche Fatturato per cliente e prodotto", "StStatistiche", 99},
    {"Magazzino/Fatture/DDT/Ordini|STAMPE e interrogazioni (magazzino,ordini,distinta base)",
     "Calcolo provvigioni e fatturato agenti", "StProvvigioniAgenti", 99},
    {"Magazzino/Fatture/DDT/Ordini|STAMPE e interrogazioni (magazzino,ordini,distinta base)",
     "Creazione FilConad", "CreaFilConad", 0},
    {"Magazzino/Fatture/DDT/Ordini|STAMPE e interrogazioni (magazzino,ordini,distinta base)",
     "Situazione commesse", "StOrd", 30, 2},
    {"Magazzino/Fatture/DDT/Ordini|STAMPE e interrogazioni (magazzino,ordini,distinta base)",
     "Situazione Ordini Clienti", "StOrd", 50, 0},
    {"Magazzino/Fatture/DDT/Ordini|STAMPE e interrogazioni (magazzino,ordini,distinta base)",
     "Situazione Ordini Fornitori", "StOrd", 30, 1},
    {"Magazzino/Fatture/DDT/Ordini|STAMPE e interrogazioni (magazzino,ordini,distinta base)",
     "Situazione Lotti e tracciabilità/rintracciabilità", "StLotti", 30},
    {"Magazzino/Fatture/DDT/Ordini|STAMPE e interrogazioni (magazzino,ordini,distinta base)",
     "Stampa ETICHETTE articoli di magazzino", "Etichette", 30},
    {"Registrazioni e stampe contabili|Registrazioni", "Movimenti Non Iva - Primanota", "Movimenti",
     99},
    {"Registrazioni e stampe contabili|Registrazioni", "Fatture e registrazioni IVA", "Fatture", 0},
    {"Registrazioni e stampe contabili|Registrazioni", "Fatture in sospensione iva pagate",
     "FattureSospIva", 0, -1, Esclusiva::No, "ApreFattureSospIva", true},
    {"Registrazioni e stampe contabili|Stampe e interrogazioni", "Bilancio di Verifica",
     "STBilancioVerifica", 99, 0},
    {"Registrazioni e stampe contabili|Stampe e interrogazioni", "Movimenti per articolo",
     "STArticoli", 99},
    {"Registrazioni e stampe contabili|Stampe e interrogazioni", "Movimenti per conto",
     "STMovimentiPerConto", 99},
    {"Registrazioni e stampe contabili|Stampe e interrogazioni",
     "Comparazione dei costi e ricavi per periodo", "STBilancioVerifica", 99, 2},
    {"Registrazioni e stampe contabili|Stampe e interrogazioni",
     "Stampa Patrimoniale e Utile/Perdita esercizio", "STBilancioVerifica", 99, 1},
    {"Registrazioni e stampe contabili|Stampe e interrogazioni", "Elenchi Clienti e Fornitori",
     "StElenchiCliFor", 99},
    {"Registrazioni e stampe contabili|Stampe e interrogazioni", "Elenchi fatture",
     "StElenchiFatture", 99},
    {"Registrazioni e stampe contabili|Stampe e interrogazioni", "Ricerca movimenti",
     "RicercaMovimenti", 99},
    {"Registrazioni e stampe contabili|Stampe e interrogazioni", "Stampa Bilancio riclassificato",
     "STBilancioRiclassificato", 99},
    {"Registrazioni e stampe contabili|Registri IVA e Giornale", "Registro iva unico",
     "STRegistroIvaUnico", 99},
    {"Registrazioni e stampe contabili|Registri IVA e Giornale", "Registri Iva", "StRegistriIva",
     99},
    {"Registrazioni e stampe contabili|Registri IVA e Giornale", "Giornale", "StGiornale", 99},
    {"Registrazioni e stampe contabili|Dichiarazioni Iva e Redditi", "Dichiarazioni Iva e Redditi",
     "Righi", 99},
    {"Scadenzario (partite aperte)", "Archivio Scadenze", "Scadenze", 99},
    {"Scadenzario (partite aperte)", "Registrazione Pagamenti", "PagamentiDaScadenzario", 99},
    {"Scadenzario (partite aperte)", "Registr.pagamenti singolo cliente/fornitore",
     "PagamentiDaScadenzario1Cli", 99},
    {"Scadenzario (partite aperte)", "Registr.anticipi su fatture da emettere/ricevere",
     "AccontiPrimaDiFattura", 99},
    {"Scadenzario (partite aperte)", "Stampa scadenze per cliente/fornitore", "STScadenzePerConto",
     99},
    {"Scadenzario (partite aperte)", "Stampa scadenze per data", "STScadenzePerData", 99},
    {"Scadenzario (partite aperte)", "Stampa Estratto Conto", "STEstrattoConto", 99},
    {"Scadenzario (partite aperte)", "Situazione scadenze", "SituazioneScadenze", 99},
    {"Scadenzario (partite aperte)", "Archivio Banche", "Banche", 99},
    {"Scadenzario (partite aperte)", "Raggruppamento Ri.Ba.", "RiBaRaggruppamento", 99},
    {"Scadenzario (partite aperte)", "Creazione disposizioni di incasso Ri.Ba.", "RiBa", 99},
    {"Scadenzario (partite aperte)", "Registrazione Insoluti RiBa", "InsolutiRiba", 99},
    {"Scadenzario (partite aperte)", "Abbinamento estratto conto", "AbbinaEstratto", 99},
    {"Cespiti Ammortizz.", "Archivio Cespiti", "Cespiti", 99},
    {"Cespiti Ammortizz.", "Categorie cespiti", "CategorieCespiti", 99},
    {"Impostazioni/Chiusure/Aperture", "Selezione Archivi", "@SelezioneArchivi", 0},
    {"Impostazioni/Chiusure/Aperture", "Creazione Nuova ditta", "Utility", 99, 0,
     Esclusiva::ChiudereLeAltre, "ApreUtility0"},
    {"Impostazioni/Chiusure/Aperture", "Modifica impostazioni Ditta", "Utility", 99, 1,
     Esclusiva::ChiudereLeAltre, "ApreUtility1"},
    {"Impostazioni/Chiusure/Aperture", "Apertura nuovo Anno", "NuovoEsercizio", 99, 0,
     Esclusiva::ChiudereLeAltre},
    {"Impostazioni/Chiusure/Aperture|Magazzino: impostazioni fatt,ddt e movimenti",
     "Tipi Documento per movimenti mag.,fatture e ddt", "TipiFattureCli", 99},
    {"Impostazioni/Chiusure/Aperture|Magazzino: impostazioni fatt,ddt e movimenti",
     "Causali movimentazione magazzino", "CausaliMag", 99},
    {"Impostazioni/Chiusure/Aperture|Magazzino: impostazioni fatt,ddt e movimenti",
     "Magazzini e depositi", "Magazzini", 99},
    {"Impostazioni/Chiusure/Aperture|Magazzino: impostazioni fatt,ddt e movimenti",
     "Trasporto Esistenze Magazzino", "TrasportoEsistenze", 99, -1, Esclusiva::ChiudereLeAltre},
    {"Impostazioni/Chiusure/Aperture|Magazzino: impostazioni fatt,ddt e movimenti",
     "Causali trasporto per emissione ddt", "CodiciCausaliTrasporto", 30},
    {"Impostazioni/Chiusure/Aperture|Magazzino: impostazioni fatt,ddt e movimenti",
     "Vettori per emissione ddt", "Vettori", 50},
    {"Impostazioni/Chiusure/Aperture|Magazzino: impostazioni fatt,ddt e movimenti",
     "Porto (franco, assegnato, ..., per ddt)", "CodiciPorto", 30},
    {"Impostazioni/Chiusure/Aperture|Magazzino: impostazioni fatt,ddt e movimenti",
     "Aspetto dei beni (scatole, a vista, ..., per ddt)", "CodiciAspetto", 30},
    {"Impostazioni/Chiusure/Aperture", "Contabilità: chiusure e aperture", "ChiusureAperture", 99,
     -1, Esclusiva::ChiuderePrimaLeAltre},
    {"Impostazioni/Chiusure/Aperture", "Compattamento database ed utilità", "Utility", 99, 2,
     Esclusiva::ChiuderePrimaLeAltre, "ApreUtility2"},
    {"Impostazioni/Chiusure/Aperture", "Copie di sicurezza", "Utility", 99, 3,
     Esclusiva::ChiuderePrimaLeAltre, "ApreUtility3"},
    {"Impostazioni/Chiusure/Aperture", "Eliminazione Registrazioni o Anno", "NuovoEsercizio", 99, 1,
     Esclusiva::ChiuderePrimaLeAltre},
    {"Impostazioni/Chiusure/Aperture", "Abilitazione password", "@AbilitaPassword", 0, -1,
     Esclusiva::No, "apreabutenti", true},
    {"Impostazioni/Chiusure/Aperture", "Impostazione utenti e diritti", "Ut", 0},
});

constexpr auto kArchivi = std::to_array<RigaArchivio>({
    {"CLIENTI", "Clienti", 30},
    {"FORNITORI", "Fornitori", 30},
    {"CODICIRIGA", "CodiciRiga", 30},
    {"ORDINIFOR", "OrdiniFor", 30},
    {"DISTINTABASE", "DistintaBase", 30},
    {"ORDINICLI", "OrdiniCli", 50},
    {"CODICIPAGAMENTO", "CodiciPagamento", 99},
    {"CONTI", "Conti", 99},
    {"CAUSALI", "Causali", 99},
    {"CODICIIVA", "CodiciIva", 99},
    {"BANCHE", "Banche", 99},
    {"CATEGORIECESPITI", "CategorieCespiti", 99},
    {"CATEGORIE", "Categorie", 99},
    {"MASTRI", "Mastri", 99},
    {"REGISTRIIVA", "RegistriIva", 99},
    {"RITENUTE", "Ritenute", 99},
    {"AGENTI", "Agenti", 99},
    {"VETTORI", "Vettori", 50},
    {"CODICIASPETTO", "CodiciAspetto", 30},
    {"CODICIPORTO", "CodiciPorto", 30},
    {"CODICICAUSALITRASPORTO", "CodiciCausaliTrasporto", 30},
    {"MAGAZZINI", "Magazzini", 99},
    {"CAUSALIMAG", "CausaliMag", 99},
    {"CATEGORIEMAG", "CategorieMag", 30},
    {"CATEGORIEMAG2", "CategorieMag2", 30},
    {"GRUPPIMAG", "GruppiMag", 30},
    {"GRUPPIMAG2", "GruppiMag2", 30},
    {"TIPIRICLASSIFICAZIONE", "TipiRiclassificazione", 99},
    {"RICLASSIFICAZIONE", "Riclassificazione", 99},
    {"TIPIFATTURECLI", "TipiFattureCli", 99},
});

/// What people call a function that its caption doesn't say.
struct RigaSinonimi {
  std::string_view finestra;
  const char* parole;
  int scheda = -1;  ///< of the entry, where a window has several
};
constexpr auto kSinonimi = std::to_array<RigaSinonimi>({
    {"Clienti", "clienti; anagrafica clienti; nuovo cliente"},
    {"Fornitori", "fornitori; anagrafica fornitori; nuovo fornitore"},
    {"STClienti", "elenco clienti; rubrica clienti"},
    {"STFornitori", "elenco fornitori; rubrica fornitori"},
    {"Mastri", "piano dei conti"},
    {"Conti", "piano dei conti; sottoconti; nuovo conto"},
    {"Causali", "causali contabili"},
    {"CodiciIva", "aliquote; esenzioni; natura iva"},
    {"RegistriIva", "sezionali; protocolli"},
    {"Ritenute", "ritenuta d'acconto"},
    {"CodiciPagamento", "condizioni di pagamento; rate; tipi pagamento"},
    {"Agenti", "rappresentanti; venditori"},
    {"CodiciRiga", "articoli; merce; listino prodotti"},
    {"Vettori", "corrieri; spedizionieri; trasportatori"},
    {"Movimenti", "prima nota; registrazioni; partita doppia; stipendi; giroconto; cassa e banca"},
    {"FattureCli",
     "ddt; bolle; documento di trasporto; bolla di consegna; fattura accompagnatoria; carichi; "
     "carico di magazzino; scarico; reso; trasferimento; movimenti di magazzino; scontrino"},
    {"Fatture",
     "fatture emesse; fatture ricevute; acquisti; vendite; corrispettivi; "
     "nota di credito; reverse charge"},
    {"FattureSospIva", "iva per cassa; iva differita; esigibilità"},
    {"STBilancioVerifica", "bilancino; saldi dei conti", 0},
    {"STBilancioVerifica", "stato patrimoniale; conto economico; utile; perdita", 1},
    {"STBilancioVerifica", "confronto anno precedente; costi; ricavi", 2},
    {"STRegistroIvaUnico", "liquidazione; liquidazione iva; iva del mese; F24; versamento iva"},
    {"StGiornale", "libro giornale; stampa giornale"},
    {"Scadenze", "partite aperte; partitario; scadenziario"},
    {"PagamentiDaScadenzario", "incassi; pagamenti; incassare; pagare; saldo fatture"},
    {"PagamentiDaScadenzario1Cli", "incasso cliente; pagamento fornitore; acconto"},
    {"AccontiPrimaDiFattura", "anticipi; acconti; caparra"},
    {"STScadenzePerConto", "scadenziario; insoluti"},
    {"STScadenzePerData", "scadenziario; cosa scade"},
    {"STEstrattoConto", "sollecito; lettera; situazione cliente"},
    {"SituazioneScadenze", "scaduto; crediti; debiti; previsione incassi"},
    {"Banche", "iban; conti correnti"},
    {"RiBa", "ricevute bancarie; distinta; effetti; portafoglio"},
    {"RiBaRaggruppamento", "ricevute bancarie; accorpare"},
    {"InsolutiRiba", "insoluti; ricevute tornate"},
    {"AbbinaEstratto", "banca; estratto conto bancario; riconciliazione; CAMT"},
    {"Cespiti",
     "ammortamenti; beni ammortizzabili; immobilizzazioni; registro cespiti; quote; fondo "
     "ammortamento; plusvalenza"},
    {"CategorieCespiti", "aliquote di ammortamento; coefficienti ministeriali"},
    {"TipiFattureCli",
     "tipi documento; causali documento; impostazioni magazzino; decimali prezzi; decimali "
     "quantità; logo; intestazione"},
    {"@SelezioneArchivi", "cambia ditta; cambia anno; altra ditta"},
    {"Utility", "nuova azienda; creare ditta; crea la tua ditta", 0},
    {"Utility",
     "impostazioni; dati della ditta; partita iva; opzioni; rinomina ditta; elimina ditta", 1},
    {"Utility", "compattare; riparare archivi; password; vidimare; pagine numerate", 2},
    {"Utility", "backup; ripristino; salvataggio; tornare indietro; ripristinare", 3},
    {"ChiusureAperture",
     "chiusura dell'anno; fine anno; apertura dei conti; giro economici; trasporto saldi; "
     "chiusura di bilancio"},
    {"NuovoEsercizio", "nuovo anno; nuovo esercizio; anno nuovo", 0},
    {"NuovoEsercizio", "cancella anno; eliminare registrazioni", 1},
    {"Ut", "password; permessi; accessi"},
});

/// Windows that only other windows and previews open.
constexpr auto kSenzaVoce = std::to_array<VoceMenu>({
    {"", "", "EliminazioneProdotto", 30},
    {"", "", "Importa", 99},
    {"", "", "InterrCliFor", 30},
    {"", "", "MovimentiConto", 99},
    {"", "", "ProdottiMovCliFor", 30},
    {"", "", "ScadenzeModifica", 99},
    {"", "", "TestSaldi", 99},
    {"", "", "VisCodiciRiga", 30},
    {"", "", "VisPdc", 99},
});

}  // namespace

std::span<const VoceMenu> MappaMenu() {
  return kVoci;
}

const VoceMenu* VoceDi(const QString& finestra, int scheda) {
  const VoceMenu* prima = nullptr;
  for (const auto& voce : kVoci) {
    if (QString::fromUtf8(voce.finestra).compare(finestra, Qt::CaseInsensitive) != 0) continue;
    if (scheda >= 0 && voce.scheda == scheda) return &voce;
    if (prima == nullptr) prima = &voce;
  }
  for (const auto& voce : kSenzaVoce) {
    if (QString::fromUtf8(voce.finestra).compare(finestra, Qt::CaseInsensitive) == 0) return &voce;
  }
  return prima;
}

const char* SinonimiDi(const VoceMenu& voce) {
  for (const auto& riga : kSinonimi) {
    if (riga.finestra == voce.finestra && (riga.scheda < 0 || riga.scheda == voce.scheda)) {
      return riga.parole;
    }
  }
  return "";
}

QString TestoEsclusiva(Esclusiva esclusiva) {
  switch (esclusiva) {
    case Esclusiva::ChiudereLeAltre:
      return QStringLiteral("chiudere le altre finestre");
    case Esclusiva::ChiuderePrimaLeAltre:
      return QStringLiteral("chiudere prima le altre finestre");
    case Esclusiva::No:
      break;
  }
  return {};
}

Rinvio RinvioDi(const VoceMenu& voce) {
  return {.funzione = voce.finestra, .scheda = voce.scheda};
}

const RigaArchivio* ArchivioDietro(const std::string& tabella) {
  for (const auto& riga : kArchivi) {
    if (tabella == riga.tabella) return &riga;
  }
  return nullptr;
}

}  // namespace fenalto::screens
