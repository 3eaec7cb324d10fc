// Confirmation and deletion of a record of an archive of codes.
#include <algorithm>
#include <utility>

#include "core/archives/ArchivioInterno.h"
#include "core/archives/CodiciNoti.h"
#include "core/archives/ConfrontoRecord.h"
#include "core/archives/FonteCodici.h"
#include "core/archives/Riferimenti.h"
#include "core/records/Conferma.h"
#include "core/store/TransazioneComune.h"
#include "core/values/Testo.h"

namespace fenalto::archives {

bool ArchivioCodici::Interno::Rifiuta(const std::string& messaggio, const std::string& campo) {
  if (!messaggio.empty()) Avviso(messaggio);
  rifiuto.campo = campo;
  return false;
}

bool ArchivioCodici::Interno::Passa(const std::vector<DescrizioneArchivio::Controllo>& controlli) {
  return std::all_of(controlli.begin(), controlli.end(), [this](const auto& controllo) {
    const std::optional<Rifiuto> no = controllo(contesto);
    return !no || Rifiuta(no->messaggio, no->campo);
  });
}

/// A code stored with blanks by another program stays as it is until it is typed anew.
void ArchivioCodici::Interno::RifilaCodice() {
  const std::string codice = contesto.Codice();
  if (!contesto.nuovo && codice == contesto.codicePrima) return;
  record.Scrivi("Cod", std::string(Rifila(codice)));
}

bool ArchivioCodici::Interno::CodiceLibero() {
  if (!contesto.CodiceCambiato()) return true;
  std::string nome(Rifila(descrizione.titoloRecord));
  if (nome.empty()) nome = "codice";
  const bool occupato =
      ambiente.Esiste(descrizione.chiave, descrizione.tabella, {{"Cod", contesto.Codice()}}, nome);
  return !occupato || Rifiuta("", "Cod");
}

bool ArchivioCodici::Interno::CodiceInUso() {
  const auto uso =
      CodiceUsato(ambiente, descrizione.tabella, contesto.codicePrima, descrizione.tabelleProprie);
  return uso && !Rifiuta(*uso, "Cod");
}

bool ArchivioCodici::Interno::Ammesso() {
  if (descrizione.compone) descrizione.compone(contesto);
  RifilaCodice();
  if (!descrizione.codiceComposto) {
    if (contesto.Codice().empty()) return Rifiuta(descrizione.codiceVuoto, "Cod");
    if (contesto.CodiceCambiato() &&
        LunghezzaTesto(contesto.Codice()) > static_cast<std::size_t>(descrizione.caratteriCodice)) {
      return Rifiuta("il codice può avere al più " + std::to_string(descrizione.caratteriCodice) +
                         " caratteri",
                     "Cod");
    }
  }
  if (!Passa(descrizione.controlli) || !CodiceLibero()) return false;
  if (!contesto.nuovo && contesto.CodiceCambiato() &&
      (!Passa(descrizione.guardieCodice) || (!descrizione.portaCodice && CodiceInUso()))) {
    return false;
  }
  if (!Passa(descrizione.controlliDopoCodice)) return false;
  const auto ignoto = Ignoto();
  return !ignoto || Rifiuta(ignoto->messaggio, ignoto->campo);
}

std::optional<Rifiuto> ArchivioCodici::Interno::Ignoto() {
  // A record may name itself: it exists once it is written.
  const auto seStesso = [this](const std::string& nome) {
    return record.Ha(nome) && UgualeTesto(record.Testo(nome), contesto.Codice()) &&
           std::ranges::any_of(descrizione.campi, [&](const records::CampoForma& campo) {
             return campo.nome == nome && !campo.fonte.empty() &&
                    UgualeTesto(DescrizioneDiFonte(campo.fonte).tabella, descrizione.tabella);
           });
  };
  return CodiceIgnoto(ambiente, descrizione, record, contesto.nuovo, [&](const std::string& nome) {
    records::StatoCampo stato =
        descrizione.stato ? descrizione.stato(contesto, nome) : records::StatoCampo{};
    stato.attivo = stato.attivo && !seStesso(nome);
    return stato;
  });
}

bool ArchivioCodici::Interno::Tiene() {
  if (contesto.nuovo || riga.EditMode() == ModoModifica::Modifica) return true;
  Rs trovata = Trova(contesto.codicePrima, false);
  if (trovata.Eof()) return true;  // told as a deletion
  auto preso = trovata.Edit();
  if (!preso && !preso.Errore().stazione.empty()) {
    Avviso(Nome() + ": in modifica " + preso.Errore().Descrizione() +
           "\nriprovare quando ha finito");
    return false;
  }
  riga = std::move(trovata);
  return true;
}

ArchivioCodici::Interno::Confronto ArchivioCodici::Interno::Confronta(std::vector<Valore>& ora) {
  const Rs adesso = Trova(contesto.codicePrima, false);
  if (adesso.Eof()) return Confronto::Eliminato;
  ora = ValoriDi(adesso);
  return RecordIdentici(ora, letti) ? Confronto::Uguale : Confronto::Cambiato;
}

void ArchivioCodici::Interno::DiventaNuovo() {
  const std::string nome = Nome();
  riga = Rs();
  letti.clear();
  contesto.nuovo = true;
  contesto.codicePrima.clear();
  daScrivere = true;
  Avviso(TestoEliminato(nome));
}

bool ArchivioCodici::Interno::Concorde() {
  if (contesto.nuovo) return true;
  std::vector<Valore> ora;
  const Confronto confronto = Confronta(ora);
  if (confronto == Confronto::Uguale) return true;
  if (confronto == Confronto::Eliminato) {
    DiventaNuovo();
    return false;
  }
  if (!ambiente.Dialogo().Conferma(DomandaCambiato(Nome(), riga.Colonne(), letti, ora))) {
    return false;
  }
  letti = std::move(ora);
  return true;
}

Transazione::Ambito ArchivioCodici::Interno::Ambito(bool conAltro) const {
  // What is written along may stand in the other database.
  return conAltro || !UgualeTesto(descrizione.chiave, "tessarc") ? Transazione::Ambito::Tutto
                                                                 : Transazione::Ambito::Tessarc;
}

bool ArchivioCodici::Interno::Scrivi() {
  const bool porta = descrizione.portaCodice && !contesto.nuovo && contesto.CodiceCambiato();
  TransazioneComune transazione(ambiente.Basi(),
                                Ambito(porta || static_cast<bool>(descrizione.conScrittura)));
  Rs nuova;
  if (contesto.nuovo) {
    nuova = Dati().Recordset("select * from " + descrizione.tabella + " where 1=0");
    nuova.AddNew();
  } else {
    std::vector<Valore> ora;
    if (Confronta(ora) != Confronto::Uguale) return false;
  }
  if (Ignoto()) return false;  // deleted elsewhere since the checks
  Rs& scritta = contesto.nuovo ? nuova : riga;
  for (const auto& [campo, valore] : record.Campi()) scritta.Imposta(campo, valore);
  scritta.Update();
  if (porta) PortaCodice(ambiente, descrizione.tabella, contesto.codicePrima, contesto.Codice());
  if (descrizione.conScrittura) descrizione.conScrittura(contesto);
  transazione.Conferma();
  return true;
}

/// After a write that failed the record is taken in edit anew, if it can be.
void ArchivioCodici::Interno::Riprendi() noexcept {
  riga = Rs();
  if (contesto.nuovo) return;
  try {
    Rs trovata = Trova(contesto.codicePrima, false);
    if (!trovata.Eof() && trovata.Edit()) riga = std::move(trovata);
  } catch (const std::exception&) {
    // The next confirmation tries again, and tells what is wrong.
  }
}

bool ArchivioCodici::Interno::Tenta(const std::string& azione,
                                    const std::function<bool()>& lavoro) {
  const records::TestoGuasto guasto = {
      Nome() + ": " + azione + " non riuscita: ",
      "\nniente è stato scritto: i dati sono ancora sullo schermo, si può riprovare"};
  return records::Tenta(ambiente, guasto, [&] {
    try {
      return lavoro();
    } catch (const std::exception&) {
      if (descrizione.annulla) descrizione.annulla(contesto);
      Riprendi();
      throw;
    }
  });
}

bool ArchivioCodici::Conferma(Rifiuto* rifiuto) {
  Interno& io = *interno_;
  if (rifiuto != nullptr) *rifiuto = {};
  if (!io.aperto || io.RifiutaSolaLettura()) return false;
  io.rifiuto = {};
  const auto lavoro = [&] {
    do {
      if (!io.Ammesso() || !io.Tiene() || !io.Concorde()) {
        if (rifiuto != nullptr) *rifiuto = io.rifiuto;
        return false;
      }
    } while (!io.Scrivi());
    return true;
  };
  if (!io.Tenta("conferma", lavoro)) return false;
  io.confermato = io.contesto.Codice();
  io.Ricorda();
  io.Chiudi();
  // What is told after finds the context as written, and whatever it does the record is closed.
  struct AllaFine {
    Interno& io;
    ~AllaFine() { io.Dimentica(); }
  } const allaFine{io};
  if (io.descrizione.dopoConferma) io.descrizione.dopoConferma(io.contesto);
  io.Racconta();
  return true;
}

const std::string& ArchivioCodici::UltimoConfermato() const {
  return interno_->confermato;
}

bool ArchivioCodici::Elimina() {
  Interno& io = *interno_;
  if (!io.aperto || io.contesto.nuovo || io.RifiutaSolaLettura() || io.SoloEsistenti())
    return false;
  const DescrizioneArchivio& descrizione = io.descrizione;
  if (!io.Passa(descrizione.guardieDomanda)) return false;
  if (!io.ambiente.Dialogo().Conferma("Conferma eliminazione DOCUMENTO ?")) return false;
  const auto lavoro = [&] {
    if (!io.Passa(descrizione.guardieElimina) || !io.Passa(descrizione.guardieCodice) ||
        io.CodiceInUso() || !io.Tiene()) {
      return false;
    }
    Transazione transazione(io.ambiente.Basi(),
                            io.Ambito(static_cast<bool>(descrizione.conEliminazione)));
    if (io.riga.Aperto() && !io.riga.Eof()) io.riga.Delete();
    if (descrizione.conEliminazione) descrizione.conEliminazione(io.contesto);
    transazione.Conferma();
    return true;
  };
  if (!io.Tenta("eliminazione", lavoro)) return false;
  io.Chiudi();
  if (descrizione.dopoEliminazione) descrizione.dopoEliminazione(io.contesto);
  io.Racconta();
  io.Dimentica();
  return true;
}

}  // namespace fenalto::archives
