#include "ledger/closing/OperazioniAnno.h"

#include <algorithm>
#include <sstream>

#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "ledger/closing/RegistrazioniEliminate.h"
#include "ledger/registrations/RegistrazioneAutomatica.h"

namespace fenalto::ledger {

namespace {

OperazioneAnno LeggiOperazione(const Rs& rs) {
  OperazioneAnno o;
  o.id = rs.Fields("ID").Intero();
  o.anno = static_cast<int>(rs.Fields("Anno").Intero());
  o.operazione = static_cast<int>(rs.Fields("Operazione").Intero());
  o.annoScritto = static_cast<int>(rs.Fields("AnnoScritto").Intero());
  o.definitivo = rs.Fields("Definitivo").Booleano();
  o.dt = rs.Fields("Dt").Data();
  o.daNumDoc = rs.Fields("DaNumDoc").Intero();
  o.aNumDoc = rs.Fields("ANumDoc").Intero();
  o.daId = rs.Fields("DaId").Intero();
  o.aId = rs.Fields("AId").Intero();
  o.quante = rs.Fields("Quante").Intero();
  o.totale = rs.Fields("Totale").Importo();
  o.sostituite = rs.Fields("Sostituite").Intero();
  o.giorno = rs.Fields("Giorno").Data();
  o.ora = rs.Fields("Ora").Testo();
  o.utente = rs.Fields("Utente").Testo();
  o.prima = rs.Fields("Prima").Testo();
  return o;
}

/// How the books stand where the run has written.
void Confronta(Archivio& tessarc, OperazioneAnno& o) {
  if (o.operazione == kOperazioneNuovoAnno) return;
  const std::string anno = sql::Criterio("Anno", "=", o.annoScritto);
  const std::string sue = anno + " and " + CriterioOperazione(o);
  o.rimaste = tessarc.Singolo("select count(*) from Articoli where " + sue).Intero();
  o.totaleOra =
      tessarc
          .Singolo("select sum(ImpoDare) from Movimenti where " + anno +
                   " and NumDoc in (select Articoli.NumDoc from Articoli where " + sue + ")")
          .Importo();
}

std::string FattaQuando(const OperazioneAnno& o) {
  std::string testo = "fatta il " + o.giorno.Testo() + " alle " + o.ora;
  if (!o.utente.empty()) testo += " da " + o.utente;
  return testo;
}

std::string DomandaAnnulla(const OperazioneAnno& o, const std::vector<OperazioneAnno>& altre,
                           Data stampata) {
  std::ostringstream testo;
  testo << "Annullare l'operazione «" << o.Nome() << "» dell'anno " << o.anno << ", "
        << FattaQuando(o) << " ?\n";
  if (o.operazione == kOperazioneNuovoAnno) {
    testo << "L'anno " << o.annoScritto << " verrà tolto";
    return testo.str();
  }
  testo << "Verranno eliminate " << o.rimaste << " registrazioni dell'anno " << o.annoScritto
        << " (articoli da " << o.daNumDoc << " a " << o.aNumDoc << ")";
  if (o.rimaste < o.quante) {
    testo << "\nAttenzione: ne aveva scritte " << o.quante << ", le altre non ci sono già più";
  } else if (o.Toccata()) {
    testo << "\nAttenzione: qualcuna è stata modificata a mano, e la modifica va persa";
  }
  if (o.sostituite > 0) {
    testo << "\nLe " << o.sostituite
          << " registrazioni di apertura provvisoria che aveva sostituito non ritornano";
  }
  if (o.dt <= stampata) testo << "\nAttenzione: sono già stampate su libro giornale";
  std::string dopo;
  for (const OperazioneAnno& altra : altre) {
    if (altra.id > o.id) dopo += (dopo.empty() ? "" : ", ") + altra.Nome();
  }
  if (!dopo.empty()) testo << "\nDopo sono state fatte: " << dopo << " (conviene annullarle prima)";
  return testo.str();
}

/// Why a new year can't be taken back; empty when it can.
std::string ImpedimentoNuovoAnno(Ambiente& ambiente, const OperazioneAnno& o) {
  const std::string anno = std::to_string(o.annoScritto);
  if (o.annoScritto == ambiente.Anno()) {
    return "l'anno " + anno + " è quello in uso: selezionare un altro anno e ripetere";
  }
  for (const char* tabella : {"Articoli", "Movimenti", "FattureCli", "FattureCli_r"}) {
    if (ambiente.Esiste("tessarc", tabella, {{"Anno", o.annoScritto}})) {
      return "sull'anno " + anno + " ci sono già registrazioni o documenti: non si può togliere";
    }
  }
  return "";
}

/// Takes the year away and gives the registers back what its creation has reset.
void TogliNuovoAnno(Archivio& tessarc, const OperazioneAnno& o) {
  tessarc.Esegui("delete * from Anni where " + sql::Criterio("Anno", "=", o.annoScritto));
  std::istringstream righe(o.prima);
  std::string cod;
  std::string protocollo;
  std::string importo;
  while (std::getline(righe, cod, '\t') && std::getline(righe, protocollo, '\t') &&
         std::getline(righe, importo)) {
    std::string aggiorna = "update RegistriIva set UltProtSt=" + protocollo;
    aggiorna.append(", Importochiusura=").append(importo);
    tessarc.Esegui(aggiorna.append(" where ").append(sql::Criterio("Cod", "=", cod)));
  }
}

}  // namespace

std::string OperazioneAnno::Nome() const {
  switch (operazione) {
    case kOperazioneNuovoAnno:
      return "apertura nuovo anno";
    case static_cast<int>(Origine::GiroEconomico):
      return "giro conti economici";
    case static_cast<int>(Origine::GiroUtile):
      return "giro utile/perdita";
    case static_cast<int>(Origine::Chiusura):
      return "chiusura conti patrimoniali";
    default:
      return definitivo ? "trasporto saldi definitivo" : "trasporto saldi provvisorio";
  }
}

void RegistraOperazione(Ambiente& ambiente, Archivio& tessarc, OperazioneAnno o) {
  tessarc.Inserisci("OperazioniAnno", {{"Anno", o.anno},
                                       {"Operazione", o.operazione},
                                       {"AnnoScritto", o.annoScritto},
                                       {"Definitivo", o.definitivo},
                                       {"Dt", o.dt},
                                       {"DaNumDoc", o.daNumDoc},
                                       {"ANumDoc", o.aNumDoc},
                                       {"DaId", o.daId},
                                       {"AId", o.aId},
                                       {"Quante", o.quante},
                                       {"Totale", o.totale},
                                       {"Sostituite", o.sostituite},
                                       {"Giorno", ambiente.Ora().Oggi()},
                                       {"Ora", ambiente.Ora().Ora()},
                                       {"Utente", ambiente.UtenteCorrente().cod},
                                       {"Prima", std::move(o.prima)}});
}

std::vector<OperazioneAnno> LeggiOperazioni(Ambiente& ambiente, int anno) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  std::vector<OperazioneAnno> operazioni;
  for (Rs rs = tessarc.Recordset("select * from OperazioniAnno where " +
                                 sql::Criterio("Anno", "=", anno) + " order by ID desc");
       !rs.Eof(); rs.MoveNext()) {
    operazioni.push_back(LeggiOperazione(rs));
  }
  for (OperazioneAnno& operazione : operazioni) Confronta(tessarc, operazione);
  return operazioni;
}

std::string CriterioOperazione(const OperazioneAnno& o) {
  // Identities are never given twice, numbers are: a registration that took the number of an
  // erased one isn't the run's.
  return "ID>=" + std::to_string(o.daId) + " and ID<=" + std::to_string(o.aId) + " and " +
         sql::Criterio("CREATOINAUTOMATICO", "=", o.operazione);
}

bool AnnullaOperazione(Ambiente& ambiente, std::int64_t id) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::string sua = sql::Criterio("ID", "=", id);
  OperazioneAnno operazione;
  const auto rifiuta = [&ambiente](const std::string& testo) {
    if (!testo.empty()) ambiente.Dialogo().Messaggio(testo, Icona::Avviso);
    return testo.empty();
  };
  const auto leggi = [&] {
    Rs rs = tessarc.Recordset("select * from OperazioniAnno where " + sua);
    if (rs.Eof()) return rifiuta("l'operazione è già stata annullata");
    operazione = LeggiOperazione(rs);
    Confronta(tessarc, operazione);
    return operazione.operazione != kOperazioneNuovoAnno ||
           rifiuta(ImpedimentoNuovoAnno(ambiente, operazione));
  };
  RegistrazioniEliminate eliminate(ambiente, tessarc);
  std::int64_t quante = 0;
  const bool fatta = records::Esegui(
      ambiente,
      {.nonRiuscita = "annullamento dell'operazione non riuscito: ",
       .numerazioni = {"ARTICOLI"},
       .ambito = Transazione::Ambito::Tessarc,
       .prima =
           [&] {
             if (!leggi()) return false;
             const Data stampata =
                 ambiente.Max("dt", "UltimaDataLibro", {{"Anno", operazione.annoScritto}}, tessarc)
                     .Data();
             const bool fuoriGiornale =
                 operazione.operazione == static_cast<int>(Origine::Apertura) &&
                 !operazione.definitivo;
             return ambiente.Dialogo().Conferma(
                 DomandaAnnulla(operazione, LeggiOperazioni(ambiente, operazione.anno),
                                fuoriGiornale ? Data() : stampata));
           },
       .sottoBlocco = leggi,
       .scrivi =
           [&] {
             if (operazione.operazione == kOperazioneNuovoAnno) {
               TogliNuovoAnno(tessarc, operazione);
             } else {
               quante = eliminate.Elimina(operazione.annoScritto, CriterioOperazione(operazione));
             }
             tessarc.Esegui("delete * from OperazioniAnno where " + sua);
             return std::string();
           }});
  if (!fatta) return false;
  eliminate.EliminaFile();
  std::string testo = "operazione «" + operazione.Nome() + "» annullata";
  if (operazione.operazione != kOperazioneNuovoAnno) {
    testo += ": eliminate " + std::to_string(quante) + " registrazioni";
  }
  ambiente.Dialogo().Annuncia(testo);
  return true;
}

}  // namespace fenalto::ledger
