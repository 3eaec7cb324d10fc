// Fields of customers and suppliers, page by page.
#include <utility>

#include "documents/parties/ArchiviParti.h"
#include "documents/parties/PartiInterno.h"

namespace fenalto::documents {
namespace {

constexpr int kNome = 50;
constexpr int kRecapito = 30;
constexpr int kPosta = 120;
constexpr int kFiscale = static_cast<int>(kCaratteriFiscale);
constexpr int kFiscaleDigitato = 60;  // as it is copied, with what parts its digits
constexpr int kScritta = 80;
constexpr int kPercentuale = 8;

records::CampoForma Testo(const char* nome, const char* didascalia, int caratteri,
                          const char* riquadro, int mostrati = 0) {
  return {.nome = nome,
          .didascalia = didascalia,
          .caratteri = caratteri,
          .riquadro = riquadro,
          .mostrati = mostrati};
}

records::CampoForma Codice(const char* nome, const char* didascalia, const std::string& fonte,
                           const char* riquadro) {
  return {.nome = nome,
          .didascalia = didascalia,
          .genere = records::GenereCampo::Codice,
          .fonte = fonte,
          .riquadro = riquadro};
}

records::CampoForma Casella(const char* nome, const char* testo, const char* riquadro) {
  return {.nome = nome, .didascalia = testo, .riquadro = riquadro};
}

records::CampoForma Percento(const char* nome, const char* didascalia, const char* riquadro) {
  return {.nome = nome, .didascalia = didascalia, .caratteri = kPercentuale, .riquadro = riquadro};
}

class Descrittore {
 public:
  Descrittore(archives::DescrizioneArchivio& archivio, const Parte& parte)
      : archivio_(archivio), parte_(parte) {}

  void Anagrafica();
  void Contatti();
  void Contabilita();
  void Condizioni();
  void Scritte();
  void Destinazione();

 private:
  void Pagina(const char* nome, const char* titolo) {
    pagina_ = nome;
    archivio_.pagine.push_back({nome, titolo});
  }
  void Riquadro(const char* nome, const char* titolo, bool largo = true) {
    archivio_.riquadri.push_back({nome, titolo, pagina_, largo});
  }
  void Campi(std::initializer_list<records::CampoForma> campi) {
    archivio_.campi.insert(archivio_.campi.end(), campi);
  }
  void Banca();
  void Prezzi();

  archives::DescrizioneArchivio& archivio_;
  const Parte& parte_;
  std::string pagina_;
};

void Descrittore::Anagrafica() {
  Campi(
      {{.nome = "Cod", .didascalia = "Codice", .caratteri = archivio_.caratteriCodice},
       records::Mostrato(kUltimoCodice, records::GenereCampo::Etichetta, "ultimo codice").Accanto(),
       Testo("ragsoc1", "Ragione sociale", kNome, ""),
       Testo("ragsoc2", "(seconda riga)", kNome, ""),
       Testo("Pseudonimo", "Pseudonimo", 20, ""),
       Testo("indirizzo", "Indirizzo", kNome, ""),
       Testo("cap", "CAP", 10, "", 6),
       Testo("localita", "Località", kNome, "", 28).Elencato().Accanto(),
       Testo("Prov", "Prov.", 4, "").Elencato().Maiuscolo().Accanto(),
       Testo("Nazione", "Nazione", kRecapito, "", 20),
       Testo("piva", "Partita IVA", kFiscale, "")
           .Elencato()
           .Maiuscolo()
           .Digitabili(kFiscaleDigitato),
       Testo("CodFisc", "Codice fiscale", kFiscale, "").Maiuscolo().Accanto(),
       Testo("telefono1", "Telefono", kRecapito, "", 20).Elencato(),
       Testo("telefono2", "altro telefono", kRecapito, "", 20).Accanto(),
       Testo("Fax", "Fax", kRecapito, "", 20),
       Testo("EMail", "E-mail", kPosta, ""),
       Testo("Internet", "Sito internet", kPosta, "")});
}

void Descrittore::Contatti() {
  Pagina("PaginaContatti", "Contatti e note");
  Riquadro("Contatti", "Persone da contattare");
  Campi({Testo("Contatto1", "Nome", kNome, "Contatti", 40),
         Testo("TelContatto1", "Telefono", kRecapito, "Contatti", 18).Accanto(),
         Testo("EmailContatto1", "E-mail", kPosta, "Contatti"),
         Testo("Contatto2", "Nome", kNome, "Contatti", 40),
         Testo("TelContatto2", "Telefono", kRecapito, "Contatti", 18).Accanto(),
         Testo("EmailContatto2", "E-mail", kPosta, "Contatti")});
  Riquadro("NoteParte", "Note");
  Campi({{.nome = "Note",
          .didascalia = "Note",
          .genere = records::GenereCampo::Note,
          .riquadro = "NoteParte"},
         Casella("Privacy", "consenso al trattamento dei dati (privacy)", "NoteParte")});
}

void Descrittore::Contabilita() {
  Pagina("PaginaContabilita", "Contabilità");
  constexpr const char* kRiquadro = "Contabilita";
  Riquadro(kRiquadro, "Contabilità e IVA");
  Campi({Codice("Conto", "Conto riepilogativo", std::string("riepilogativi") + parte_.classe,
                kRiquadro),
         Codice("ContropFatture", "Contropartita fatture", "contropartite", kRiquadro),
         Codice("CodIva", "Codice IVA", "codiciIva", kRiquadro)});
  if (parte_.Clienti()) {
    Campi({Codice("EsenzioneIva", "Esenzione IVA", "codiciIva", kRiquadro),
           Codice("Ritenuta", "Ritenuta", "ritenute", kRiquadro)});
    Campi({{.nome = "Fido", .didascalia = "Fido", .riquadro = kRiquadro}});
  }
  Campi({Codice("Categoria", "Categoria", "categorie", kRiquadro),
         Casella("Ep", "Sospensione IVA", kRiquadro),
         Casella("Elenco", "va negli elenchi annuali", kRiquadro).Accanto()});
  Banca();
  if (parte_.Clienti()) return;
  Riquadro(kPersonaFisica, "Persona fisica soggetta a ritenuta");
  Campi(
      {{.nome = "DataNascita", .didascalia = "Nata/o il", .riquadro = kPersonaFisica},
       Testo("LuogoNascita", "a", kNome, kPersonaFisica, 40).Accanto(),
       Casella("CertificazioneCompensi", "riceve la certificazione dei compensi", kPersonaFisica)});
}

void Descrittore::Banca() {
  constexpr const char* kRiquadro = "RiquadroBanca";
  Riquadro(kRiquadro, parte_.Clienti() ? "Banca del cliente" : "Banca del fornitore");
  Campi({Testo("Banca", "Banca", kNome, kRiquadro), Testo("Agenzia", "Agenzia", kNome, kRiquadro),
         Testo("CinInt", "stato/cin int", 4, kRiquadro).Maiuscolo(),
         Testo("Cin", "cin", 1, kRiquadro, 2).Maiuscolo().Accanto(),
         Testo("Abi", "abi", 5, kRiquadro).Accanto(), Testo("CAB", "cab", 5, kRiquadro).Accanto(),
         Testo("ContoBanca", "conto corrente", 12, kRiquadro).Maiuscolo().Accanto(),
         Testo("Bic", "bic (swift code)", 11, kRiquadro).Maiuscolo()});
}

void Descrittore::Condizioni() {
  Pagina("PaginaCondizioni", "Condizioni");
  constexpr const char* kRiquadro = "Condizioni";
  Riquadro(kRiquadro, parte_.Clienti() ? "Condizioni predefinite per fatture,ddt, ordini,offerte"
                                       : "Condizioni predefinite");
  Campi({Codice("Pagamento", "Pagamento", "pagamenti", kRiquadro),
         {.nome = kInfoPagamento,
          .didascalia = "",
          .genere = records::GenereCampo::Etichetta,
          .riquadro = kRiquadro}});
  if (!parte_.Clienti()) return;
  Campi({Percento("ScCassa", "Sconto cassa %", kRiquadro),
         Codice("Agente", "Agente", "agenti", kRiquadro),
         Codice("Vettore", "Vettore", "vettori", kRiquadro)});
  Prezzi();
  constexpr const char* kFatturazione = "Fatturazione";
  Riquadro(kFatturazione, "Fatturazione");
  Campi({Testo("SpRiBa", "Spese incasso/riba da addebitare in fattura", 20, kFatturazione),
         Testo("CodForn", "codice fornitore per fileconad", 20, kFatturazione),
         Casella("RaggrRigheDdt", "raggruppa le righe dei ddt", kFatturazione),
         Casella("ConsumatoreFin", "consumatore finale", kFatturazione).Accanto(),
         Casella("EscludoFatAuto", "ddt esclusi dalla fatturazione automatica", kFatturazione)});
}

void Descrittore::Prezzi() {
  constexpr const char* kRiquadro = "PrezziSconti";
  Riquadro(kRiquadro, "Prezzi e sconti");
  records::CampoForma prezzo{.nome = "Prezzi123",
                             .didascalia = "Prezzo",
                             .caratteri = 2,
                             .nota =
                                 "il cliente è soggetto al listino 1,2,3,4 o 5 dell'archivio "
                                 "prodotti; 0: prezzo dell'ultima fattura",
                             .riquadro = kRiquadro};
  records::CampoForma listino = Testo("listino", "Listino", 10, kRiquadro);
  listino.nota = "il cliente è soggetto ad uno specifico listino";
  Campi({std::move(prezzo), std::move(listino), Percento("Sc1", "Sconti %", kRiquadro),
         Percento("Sc2", "", kRiquadro).Accanto(), Percento("Sc3", "", kRiquadro).Accanto()});
}

void Descrittore::Scritte() {
  Pagina("PaginaScritte", "Scritte");
  Riquadro("ScritteDdt", "Scritte predefinite per ddt e ricevute");
  Campi({Testo("VarieDdt1", "Riga 1", kScritta, "ScritteDdt"),
         Testo("VarieDdt2", "Riga 2", kScritta, "ScritteDdt")});
  if (parte_.Clienti()) {
    Riquadro("ScritteFattura", "Scritte predefinite per fattura");
    Campi({Testo("VarieFat1", "Riga 1", kScritta, "ScritteFattura"),
           Testo("VarieFat2", "Riga 2", kScritta, "ScritteFattura")});
  }
  Riquadro("ScritteOrdini", "Scritte predefinite per ordini");
  Campi({Testo("AttenzOrd", "Alla cortese attenzione", kScritta, "ScritteOrdini"),
         Testo("ConsegnaOrd", "Consegna", kScritta, "ScritteOrdini"),
         {.nome = "NoteIntestazioneOrd",
          .didascalia = "Note di intestazione",
          .genere = records::GenereCampo::Note,
          .riquadro = "ScritteOrdini"}});
}

void Descrittore::Destinazione() {
  Pagina(kPaginaDestinazioni, parte_.Clienti() ? "Destinazioni" : "Destinazione");
  Riquadro(kPredefinita, parte_.Clienti() ? "destinazione merce predefinita per ddt"
                                          : "destinazione merce predefinita");
  Campi({Testo("RagSoc1Dest", "Ragione sociale", kNome, kPredefinita),
         Testo("ragsoc2Dest", "(seconda riga)", kNome, kPredefinita),
         Testo("indirizzodest", "Indirizzo", kNome, kPredefinita),
         Testo("capdest", "CAP", 10, kPredefinita, 6),
         Testo("localitadest", "Località", kNome, kPredefinita, 28).Accanto(),
         Testo("provdest", "Prov.", 4, kPredefinita).Maiuscolo().Accanto()});
  if (parte_.Clienti()) {
    Campi({Testo("CodDest", "Cod.destinazione per fileconad", 20, kPredefinita)});
  }
}

}  // namespace

void DescriviCampi(archives::DescrizioneArchivio& archivio, const Parte& parte) {
  Descrittore descrittore(archivio, parte);
  descrittore.Anagrafica();
  descrittore.Contabilita();
  descrittore.Condizioni();
  descrittore.Destinazione();
  descrittore.Scritte();
  descrittore.Contatti();
}

}  // namespace fenalto::documents
