// The form of a document type, page by page, and what is written with it.
#include "documents/types/TipiDocumento.h"

#include <algorithm>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "documents/types/TipiDocumentoInterno.h"
#include "documents/types/TipoDocumento.h"

namespace fenalto::documents {
namespace {

namespace fs = std::filesystem;
using records::CampoForma;
using records::DiCodice;
using records::Digitato;
using records::GenereCampo;

constexpr int kCaratteriTipo = 6;
constexpr int kTitolo = 50;
constexpr int kRigaPiede = 80;
constexpr int kPercorso = 1'000;  // longer than is accepted, so that it can be refused
constexpr int kPercorsoVisto = 48;
constexpr const char* kSenso = "SensoCausale";

std::string TestoSenso(const std::string& cs) {
  if (cs == "C") return "CARICO (aumenta la giacenza di magazzino)";
  if (cs == "S") return "SCARICO (diminuisce la giacenza di magazzino)";
  return {};
}

records::StatoCampo Stato(const archives::ContestoArchivio& c, const std::string& nome) {
  if (UgualeTesto(nome, kSenso)) {
    return {.testo = TestoSenso(SensoCausale(c.ambiente, c.scheda.Testo("CausaleMag")))};
  }
  if (UgualeTesto(nome, "CliFor")) {
    const bool fornitori = UgualeTesto(c.scheda.Testo("CFP"), "F");
    return {.fonte = fornitori ? "fornitori" : "clienti"};
  }
  if (UgualeTesto(nome, "Modulo")) {
    return {.attivo = c.scheda.Leggi("TracciatoPersonal").Booleano()};
  }
  return {};
}

/// As the lists write them, whoever has stored the type.
void Aperto(archives::ContestoArchivio& c) {
  for (const char* campo : {"TipoStampa", "CFP", "Trasporto"}) {
    c.scheda.Scrivi(campo, Maiuscolo(c.scheda.Testo(campo)));
  }
}

void Lasciato(archives::ContestoArchivio& c, const std::string& campo) {
  if (UgualeTesto(campo, "TipoDefault")) c.memoria[kPredefinitoScelto] = "si";
  if (UgualeTesto(campo, "CFP")) c.scheda.Scrivi("CliFor", "");
  if (UgualeTesto(campo, "CodAspetto")) {
    const Valore testo = c.ambiente.Cerca("tessarc", "CodiciAspetto",
                                          {{"Cod", c.scheda.Testo("CodAspetto")}}, "Descrizione");
    if (!testo.Nullo()) c.scheda.Scrivi("Aspetto", testo);
  }
  if (UgualeTesto(campo, "Logo") || UgualeTesto(campo, "mfProg") || UgualeTesto(campo, "mfCart")) {
    if (LunghezzaTesto(c.scheda.Testo(campo)) <= kMassimoPercorsoTipo) return;
    c.ambiente.Dialogo().Messaggio(kPercorsoLungo, Icona::Avviso);
    c.foco = campo;
  }
}

/// One type is preselected: the one ticked last.
void SoloPredefinito(archives::ContestoArchivio& c) {
  if (!c.scheda.Leggi("TipoDefault").Booleano()) return;
  c.ambiente.ArchivioDi("tessarc").Esegui(
      "UPDATE TipiFattureCli SET TipoDefault=False WHERE TipoDefault=True AND " +
      sql::Criterio("Cod", "<>", c.Codice()));
}

// --- The form
// --------------------------------------------------------------------------------------

void Documento(archives::DescrizioneArchivio& d) {
  constexpr const char* kMagazzino = "RiquadroMagazzino";
  constexpr const char* kCarico = "RiquadroCarico";
  d.riquadri = {
      {kMagazzino, "Movimentazione di magazzino", "", true},
      {kCarico, "Dati per documenti con 'causale movimentazione' di tipo 'Carico'", "", true}};
  d.campi = {
      Digitato("Cod", "Tipo documento", kCaratteriTipo).Maiuscolo().Nota("p.es. 01,02,03..."),
      Digitato("Descrizione", "Descrizione", kTitolo),
      Digitato("TipoStampa", "Tipo stampa")
          .Di(GenereCampo::Elenco)
          .Scelte({{""}, {kBolla}, {kFattura}, {kFattAcc}, {kMovimento}, {kScontrino}})
          .Elencato(),
      Digitato("Tipo", "Titolo sul documento", kTitolo),
      Digitato("CFP", "Clienti o fornitori")
          .Di(GenereCampo::Combinata)
          .Scelte({{""}, {"C"}, {"F"}})
          .Nota("C = clienti    F = fornitori")
          .Elencato(),
      DiCodice("CliFor", "Cliente o fornitore predefinito", "clienti").Peso(1),
      Digitato("TipoDefault", "Tipo proposto aprendo l'emissione dei documenti"),
      DiCodice("CausaleMag", "Causale movimentazione", "causaliMag", 6).In(kMagazzino).Elencato(),
      records::Mostrato(kSenso, GenereCampo::Sommessa).In(kMagazzino),
      DiCodice("Mag", "Magazzino", "magazzini", 6).In(kMagazzino).Elencato(),
      DiCodice("TipoDocTrasferimento",
               "Trasferimento: tipo documento di carico nell'altro magazzino", "tipiDocumento",
               kCaratteriTipo)
          .In(kMagazzino)
          .Aiuto("su un tipo di scarico: la merce si carica da sola nel magazzino di arrivo"),
      DiCodice("TipoDocScaricoDB", "Scarico distinta base automatico: tipo documento",
               "tipiDocumento", kCaratteriTipo)
          .In(kCarico),
      Digitato("NoCosti", "I prezzi di questi documenti non entrano nel calcolo dei costi")
          .In(kCarico)};
}

void Aggiungi(archives::DescrizioneArchivio& d, std::vector<CampoForma> campi) {
  std::ranges::move(campi, std::back_inserter(d.campi));
}

void Fatturazione(archives::DescrizioneArchivio& d) {
  constexpr const char* kPagina = "PaginaFatturazione";
  constexpr const char* kRighe = "RiquadroRighe";
  constexpr const char* kFatture = "RiquadroFatture";
  constexpr const char* kDdt = "RiquadroDdt";
  d.pagine.push_back({kPagina, "Fatturazione"});
  d.riquadri.push_back({kFatture, "Fatture e fatture accompagnatorie", kPagina, true});
  d.riquadri.push_back({kRighe, "Righe del documento", kPagina, true});
  d.riquadri.push_back({kDdt, "Documenti di trasporto", kPagina, true});
  Aggiungi(d, {DiCodice("Riva", "Registro iva", "registri", 4)
                   .In(kFatture)
                   .Nota("vuoto: le fatture non si contabilizzano")
                   .Elencato(),
               DiCodice("CodIva", "Codice iva", "codiciIva", 6).In(kRighe),
               DiCodice("Conto", "Conto", "conti", 10).In(kRighe),
               Digitato("PrezziIvati", "fattura con prezzi ivati e scorporo").In(kRighe),
               Digitato("Fatturo", "ddt da fatturare").In(kDdt),
               Digitato("NDdt", "Scritta al posto di \"DDT n.\" nelle fatture", 40).In(kDdt)});
}

void Trasporto(archives::DescrizioneArchivio& d) {
  constexpr const char* kPagina = "PaginaTrasporto";
  constexpr const char* kTrasporto = "RiquadroTrasporto";
  d.pagine.push_back({kPagina, "Trasporto"});
  d.riquadri.push_back(
      {kTrasporto, "Proposti nei ddt e nelle fatture accompagnatorie", kPagina, true});
  Aggiungi(d, {DiCodice("CodiceCausaleTrasporto", "Causale trasporto", "causaliTrasporto", 6)
                   .In(kTrasporto),
               Digitato("Trasporto", "Trasporto a cura di")
                   .Di(GenereCampo::Combinata)
                   .Scelte({{""}, {"M"}, {"D"}, {"V"}})
                   .Nota("M = mittente    D = destinatario    V = vettore")
                   .In(kTrasporto),
               DiCodice("Porto", "Porto", "porti", 6).In(kTrasporto),
               DiCodice("CodAspetto", "Aspetto dei beni", "aspetti", 6).In(kTrasporto),
               Digitato("Aspetto", "Scritta dell'aspetto", 40).In(kTrasporto)});
}

void Stampa(archives::DescrizioneArchivio& d) {
  constexpr const char* kNumero = "RiquadroNumero";
  constexpr const char* kScritte = "RiquadroScritte";
  constexpr const char* kCampi = "RiquadroCampi";
  constexpr const char* kModello = "RiquadroModello";
  d.pagine.push_back({kPaginaStampaTipo, "Stampa"});
  d.riquadri.push_back({kNumero, "Copie e numero", kPaginaStampaTipo, true});
  d.riquadri.push_back({kModello, "Modello", kPaginaStampaTipo, true});
  d.riquadri.push_back({kScritte, "Scritte al piede", kPaginaStampaTipo, true});
  d.riquadri.push_back({kCampi,
                        "campi personalizzabili da evidenziare nelle righe sulla stampa dei  ddt e "
                        "fatture accompagnatorie",
                        kPaginaStampaTipo, true});
  Aggiungi(d, {Digitato("Copie", "Copie da stampare", 3).In(kNumero),
               Digitato("NonRiempioDiZeri", "numero senza zeri davanti").In(kNumero).Accanto(),
               Digitato("NonStTipo", "numero senza tipo documento davanti").In(kNumero).Accanto(),
               Digitato("TracciatoPersonal")
                   .Di(GenereCampo::Opzioni)
                   .Scelte({{"False", "Modello stampa standard", "OptStandard"},
                            {"True", "Modello stampa personalizzato", "OptPersonalizzato"}})
                   .AlMargine()
                   .In(kModello),
               Digitato("Modulo", "Modello")
                   .Di(GenereCampo::Elenco)
                   .Scelte({{""}})
                   .In(kModello)
                   .Accanto()
                   .Aiuto("i file .Mod della cartella Ini"),
               Digitato("xTar", "Allineamento in mm: x", 5).In(kModello),
               Digitato("yTar", "y", 5).In(kModello).Accanto(),
               Digitato("Logo", "Percorso immagine intestazione e logo dell'azienda", kPercorso)
                   .Mostra(kPercorsoVisto)
                   .In(kModello),
               records::Mostrato(std::string(kScegli) + "Logo", GenereCampo::Pulsante, "Sfoglia...")
                   .In(kModello)
                   .Accanto(),
               Digitato("Scritta1", "Riga 1", kRigaPiede).In(kScritte),
               Digitato("Scritta2", "Riga 2", kRigaPiede).In(kScritte),
               Digitato("Campo1", "Primo campo", 20).In(kCampi),
               Digitato("Campo2", "Secondo campo", 20).In(kCampi).Accanto()});
}

void Scontrini(archives::DescrizioneArchivio& d) {
  constexpr const char* kMisuratore = "RiquadroMisuratore";
  d.pagine.push_back({kPaginaScontriniTipo, "Scontrini"});
  d.riquadri.push_back({kMisuratore, "Misuratore fiscale", kPaginaScontriniTipo, true});
  Aggiungi(d,
           {Digitato("mfTipo", "Tipo misuratore fiscale", 20).In(kMisuratore),
            Digitato("MfRep", "Reparto", 6).In(kMisuratore).Nota("vuoto: 1"),
            Digitato("mfCart", "Cartella dove salvare scontrini", kPercorso)
                .Mostra(kPercorsoVisto)
                .In(kMisuratore),
            records::Mostrato(std::string(kScegli) + "mfCart", GenereCampo::Pulsante, "Sfoglia...")
                .In(kMisuratore)
                .Accanto(),
            Digitato("mfProg", "Programma da eseguire", kPercorso)
                .Mostra(kPercorsoVisto)
                .In(kMisuratore),
            records::Mostrato(std::string(kScegli) + "mfProg", GenereCampo::Pulsante, "Sfoglia...")
                .In(kMisuratore)
                .Accanto(),
            Digitato("mfCodFisc", "codice fiscale del cliente sullo scontrino").In(kMisuratore),
            Digitato("mfDettaglio", "dettaglio delle righe").In(kMisuratore)});
}

}  // namespace

archives::DescrizioneArchivio ArchivioTipiDocumento() {
  archives::DescrizioneArchivio d;
  d.finestra = "TipiFattureCli";
  d.titolo = "Tipi Documento per movimenti magazzino, fatture e ddt";
  d.tabella = "TipiFattureCli";
  d.titoloNuovo = "nuovo tipo documento";
  d.titoloCopia = "nuovo da sdoppiamento ";
  d.titoloRecord = "tipo documento ";
  d.caratteriCodice = kCaratteriTipo;
  d.codiceVuoto = "inserire un codice nel campo 'tipo documento' (p.es. 01,02,03...)";
  Documento(d);
  Fatturazione(d);
  Trasporto(d);
  Stampa(d);
  Scontrini(d);
  d.stato = Stato;
  d.aperto = Aperto;
  d.lasciato = Lasciato;
  d.controlli = ControlliTipo();
  d.controlliDopoCodice = ControlliTipoInFondo();
  d.guardieDomanda = {TipoPredefinito};
  d.guardieCodice = {TipoPredefinito};
  d.conScrittura = SoloPredefinito;
  return d;
}

std::vector<std::string> ModelliPersonali(const Ambiente& ambiente) {
  std::vector<std::string> modelli;
  std::error_code errore;
  for (const auto& voce : fs::directory_iterator(ambiente.CartellaProgramma() / "Ini", errore)) {
    if (!UgualeTesto(voce.path().extension().string(), ".MOD")) continue;
    modelli.push_back(voce.path().stem().string());
  }
  std::ranges::sort(modelli, [](const auto& a, const auto& b) { return ConfrontaTesto(a, b) < 0; });
  return modelli;
}

std::string PercorsoTenuto(Ambiente& ambiente, const fs::path& scelto) {
  const fs::path dentro = scelto.lexically_relative(ambiente.CartellaDitta());
  const bool suo = !dentro.empty() && *dentro.begin() != "..";
  std::string tenuto = (suo ? dentro : scelto).string();
  if (LunghezzaTesto(tenuto) <= kMassimoPercorsoTipo) return tenuto;
  ambiente.Dialogo().Messaggio(kPercorsoLungo, Icona::Avviso);
  return {};
}

fs::path PercorsoVero(const Ambiente& ambiente, const std::string& tenuto) {
  return tenuto.empty() ? fs::path() : ambiente.CartellaDitta() / tenuto;
}

}  // namespace fenalto::documents
