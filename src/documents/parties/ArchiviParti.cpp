#include "documents/parties/ArchiviParti.h"

#include <string>
#include <utility>

#include "core/archives/Importazione.h"
#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "documents/parties/CodiceParte.h"
#include "documents/parties/PartiInterno.h"
#include "ledger/accounts/ContiClientiFornitori.h"
#include "ledger/accounts/PannelloSaldo.h"

namespace fenalto::documents {
namespace {

/// Greatest length of a party's code: the place it has on lists and in the bank's files.
constexpr int kCaratteriCodice = 10;
/// Right that the functions of accounting ask.
constexpr const char* kInviaEmail = "InviaEmail";

constexpr Parte kClienti = {.tabella = "Clienti",
                            .classe = "C",
                            .titolo = "Archivio Clienti",
                            .titoloNuovo = "nuovo cliente",
                            .titoloRecord = "cliente ",
                            .plurale = "clienti",
                            .chiaveNuovo = "nuovocliente",
                            .ordini = "OrdiniCli"};
constexpr Parte kFornitori = {.tabella = "Fornitori",
                              .classe = "F",
                              .titolo = "Archivio Fornitori",
                              .titoloNuovo = "nuovo fornitore",
                              .titoloRecord = "fornitore ",
                              .plurale = "fornitori",
                              .chiaveNuovo = "nuovofornitore",
                              .ordini = "OrdiniFor"};

// --- Opening -------------------------------------------------------------------------------------

/// A new party is proposed the next code, and the first summary account of its class.
void Proponi(archives::ContestoArchivio& contesto, const Parte& parte) {
  Scheda& scheda = contesto.scheda;
  if (CodificaAutomatica(contesto.ambiente)) {
    const std::string ultimo = UltimoCodice(contesto.ambiente, parte.tabella);
    scheda.Scrivi(kUltimoCodice, ultimo);
    scheda.Scrivi("Cod", CodiceDopo(ultimo));
  }
  if (scheda.Testo("Conto").empty()) {
    scheda.Scrivi("Conto", contesto.ambiente.ArchivioDi("tessarc")
                               .Singolo("SELECT Min(Cod) FROM Conti WHERE " +
                                        sql::Criterio("CFP", "=", parte.classe))
                               .Testo());
  }
}

void Aperta(archives::ContestoArchivio& contesto, const Parte& parte) {
  Scheda& scheda = contesto.scheda;
  scheda.Scrivi(kUltimoCodice, "");
  if (contesto.nuovo) Proponi(contesto, parte);
  MostraPagamento(contesto);
}

void ClienteAperto(archives::ContestoArchivio& contesto, DestinazioniCliente& destinazioni) {
  if (contesto.copia) {
    destinazioni.Copiate();
  } else {
    destinazioni.Leggi(contesto.ambiente, contesto.codicePrima);
    constexpr std::int64_t kPrimoPrezzo = 1;
    if (contesto.nuovo) contesto.scheda.Scrivi("Prezzi123", kPrimoPrezzo);
  }
  Aperta(contesto, kClienti);
}

// --- The list that movements search --------------------------------------------------------------

/// The list hadn't the party: to be told once it is written or erased.
void DiSeManca(archives::ContestoArchivio& contesto, bool trovata) {
  contesto.daDire = trovata ? std::string() : ledger::VoceNonTrovata(contesto.codicePrima);
}

void ScriviVoce(archives::ContestoArchivio& contesto, const Parte& parte) {
  Scheda& scheda = contesto.scheda;
  Archivio& tessarc = contesto.ambiente.ArchivioDi("tessarc");
  const ledger::VoceContiClientiFornitori prima{contesto.codicePrima, parte.classe};
  const ledger::VoceContiClientiFornitori ora{contesto.Codice(), parte.classe,
                                              scheda.Testo("ragsoc1"), scheda.Testo("ragsoc2")};
  bool trovata = true;
  if (!contesto.nuovo && !contesto.CodiceCambiato()) {
    trovata = ledger::CambiaVoce(tessarc, ora);
  } else {
    if (!contesto.nuovo) trovata = ledger::TogliVoce(tessarc, prima);
    ledger::AggiungiVoce(tessarc, ora);
  }
  DiSeManca(contesto, trovata);
}

void TogliVoceDiParte(archives::ContestoArchivio& contesto, const Parte& parte) {
  const bool trovata = ledger::TogliVoce(contesto.ambiente.ArchivioDi("tessarc"),
                                         {contesto.codicePrima, parte.classe});
  DiSeManca(contesto, trovata);
}

// --- Buttons -------------------------------------------------------------------------------------

using Righe = std::vector<std::string>;

Righe NonRegistrata(const Parte& parte) {
  return {std::string(parte.titoloRecord) + "non ancora registrato"};
}

Righe MostraSaldo(archives::ContestoArchivio& contesto, const Parte& parte) {
  Ambiente& ambiente = contesto.ambiente;
  if (!ambiente.HaDiritto(kLivelloContabile)) {
    ambiente.Dialogo().Messaggio(
        "l'utente " + ambiente.UtenteCorrente().cod + " non ha i diritti per questa operazione",
        Icona::Avviso);
    return {};
  }
  if (contesto.nuovo) return NonRegistrata(parte);
  return ledger::RigheSaldo(ambiente, parte.classe, contesto.codicePrima);
}

/// A button that opens a function on the party.
archives::PulsanteArchivio Collegamento(const Parte& parte, const char* nome, const char* testo,
                                        const char* finestra) {
  return {nome, testo, true,
          [&parte, finestra](archives::ContestoArchivio& contesto) {
            if (contesto.nuovo) return NonRegistrata(parte);
            if (contesto.apri) {
              contesto.apri(
                  {.funzione = finestra, .codice = contesto.codicePrima, .classe = parte.classe});
            }
            return Righe();
          },
          finestra};
}

Righe InviaEmail(archives::ContestoArchivio& contesto) {
  const std::string indirizzo(Rifila(contesto.scheda.Testo("EMail")));
  if (!indirizzo.empty() && !contesto.ambiente.Dialogo().ApriEsterno("mailto:" + indirizzo)) {
    contesto.ambiente.Dialogo().Messaggio(
        "non si apre il programma di posta per scrivere a " + indirizzo, Icona::Avviso);
  }
  return {};
}

std::vector<archives::PulsanteArchivio> Pulsanti(const Parte& parte) {
  return {Collegamento(parte, "movimenti", "Movimenti", "MovimentiConto"),
          {"saldo", "Saldo", true,
           [&parte](archives::ContestoArchivio& c) { return MostraSaldo(c, parte); }},
          Collegamento(parte, "scadenze", "Scadenze", "Scadenze"),
          Collegamento(parte, "statistiche", "Statistiche", "StStatistiche"),
          Collegamento(parte, "ordini", "Ordini", parte.ordini),
          Collegamento(parte, "interroga", "Interrogazione", "InterrCliFor"),
          {kInviaEmail, "Invia email", true, InviaEmail},
          archives::PulsanteImporta(parte.tabella)};
}

// --- The description -----------------------------------------------------------------------------

records::StatoCampo StatoDi(const archives::ContestoArchivio& contesto, const std::string& nome) {
  if (UgualeTesto(nome, kUltimoCodice)) {
    return {.visibile = !contesto.scheda.Testo(kUltimoCodice).empty()};
  }
  if (UgualeTesto(nome, kPersonaFisica)) {
    return {.visibile = ImpostazioneAttiva(contesto.ambiente, "RITENUTAACCONTO")};
  }
  if (UgualeTesto(nome, kInfoPagamento)) {
    return {.visibile = !contesto.scheda.Testo(kInfoPagamento).empty()};
  }
  if (UgualeTesto(nome, kInviaEmail)) {
    return {.attivo = !Rifila(contesto.scheda.Testo("EMail")).empty()};
  }
  return {};
}

archives::DescrizioneArchivio ArchivioParte(const Parte& parte) {
  archives::DescrizioneArchivio archivio;
  archivio.finestra = parte.tabella;
  archivio.titolo = parte.titolo;
  archivio.tabella = parte.tabella;
  archivio.campoDescrizione = "ragsoc1";
  archivio.ricordato = true;
  archivio.titoloNuovo = parte.titoloNuovo;
  archivio.titoloRecord = parte.titoloRecord;
  archivio.caratteriCodice = kCaratteriCodice;
  archivio.confermaPassando = true;
  archivio.soloEsistenti = [&parte](Ambiente& ambiente) {
    return UgualeTesto(Rifila(ambiente.Config(parte.chiaveNuovo)), "NO");
  };
  archivio.campiExtra = {{kUltimoCodice, Tipo::Testo}, {kInfoPagamento, Tipo::Testo}};
  DescriviCampi(archivio, parte);
  archivio.pulsanti = Pulsanti(parte);

  archivio.aperto = [&parte](archives::ContestoArchivio& c) { Aperta(c, parte); };
  archivio.lasciato = [&parte](archives::ContestoArchivio& c, const std::string& campo) {
    ParteLasciata(c, parte, nullptr, campo);
  };
  archivio.stato = StatoDi;
  archivio.controlli = ControlliParte(parte);
  archivio.controlliDopoCodice = ControlliParteDopoCodice(parte);
  archivio.conScrittura = [&parte](archives::ContestoArchivio& c) { ScriviVoce(c, parte); };
  archivio.conEliminazione = [&parte](archives::ContestoArchivio& c) {
    TogliVoceDiParte(c, parte);
  };
  return archivio;
}

}  // namespace

archives::DescrizioneArchivio ArchivioClienti(
    const std::shared_ptr<DestinazioniCliente>& destinazioni) {
  archives::DescrizioneArchivio clienti = ArchivioParte(kClienti);
  clienti.aperto = [destinazioni](archives::ContestoArchivio& c) {
    ClienteAperto(c, *destinazioni);
  };
  clienti.lasciato = [destinazioni](archives::ContestoArchivio& c, const std::string& campo) {
    ParteLasciata(c, kClienti, destinazioni.get(), campo);
  };
  clienti.stato = [destinazioni](const archives::ContestoArchivio& c, const std::string& nome) {
    // The page has room for one of them at a time.
    if (UgualeTesto(nome, kPredefinita))
      return records::StatoCampo{.visibile = !destinazioni->InRiga()};
    return StatoDi(c, nome);
  };
  clienti.conScrittura = [destinazioni](archives::ContestoArchivio& c) {
    destinazioni->Scrivi(c.ambiente, c.codicePrima, c.Codice());
    ScriviVoce(c, kClienti);
  };
  clienti.conEliminazione = [](archives::ContestoArchivio& c) {
    DestinazioniCliente::EliminaTutte(c.ambiente, c.codicePrima);
    TogliVoceDiParte(c, kClienti);
  };
  return clienti;
}

archives::DescrizioneArchivio ArchivioFornitori() {
  return ArchivioParte(kFornitori);
}

std::vector<archives::DescrizioneArchivio> ArchiviParti() {
  return {ArchivioClienti(std::make_shared<DestinazioniCliente>()), ArchivioFornitori()};
}

}  // namespace fenalto::documents
