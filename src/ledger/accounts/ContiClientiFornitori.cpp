#include "ledger/accounts/ContiClientiFornitori.h"

#include "core/sql/Criterio.h"
#include "ledger/accounts/PianoDeiConti.h"

namespace fenalto::ledger {

namespace {

std::string Dove(const VoceContiClientiFornitori& voce) {
  return " WHERE " + sql::Criterio("Cod", "=", voce.cod) + " AND " +
         sql::Criterio("CFP", "=", voce.cfp);
}

}  // namespace

std::string NomeConto(Ambiente& ambiente, const std::string& cfp, const std::string& conto) {
  return NzStr(ambiente.Cerca("tessarc", "ContiClientiFornitori", {{"Cod", conto}, {"CFP", cfp}},
                              "Descrizione"));
}

void AggiungiVoce(Archivio& tessarc, const VoceContiClientiFornitori& voce) {
  if (CambiaVoce(tessarc, voce)) return;
  tessarc.Inserisci("ContiClientiFornitori", {{"Cod", voce.cod},
                                              {"CFP", voce.cfp},
                                              {"Descrizione", voce.descrizione},
                                              {"Descrizione2", voce.descrizione2}});
}

bool CambiaVoce(Archivio& tessarc, const VoceContiClientiFornitori& voce) {
  // The code too: it may be typed anew in other letters, which is the same key.
  return tessarc.Esegui("UPDATE ContiClientiFornitori SET Cod = " + sql::LetteraleSql(voce.cod) +
                        ", Descrizione = " + sql::LetteraleSql(voce.descrizione) +
                        ", Descrizione2 = " + sql::LetteraleSql(voce.descrizione2) + Dove(voce)) >
         0;
}

bool TogliVoce(Archivio& tessarc, const VoceContiClientiFornitori& voce) {
  return tessarc.Esegui("DELETE FROM ContiClientiFornitori" + Dove(voce)) > 0;
}

std::string VoceNonTrovata(const std::string& cod) {
  return "funz.AggiornaContiClientiFornitori : Cod " + cod + " non trovato";
}

bool AggiornaContiClientiFornitori(Ambiente& ambiente, bool eliminato, bool nuovo,
                                   const std::string& cod, const std::string& cfp,
                                   const std::string& descrizione,
                                   const std::string& descrizione2) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const VoceContiClientiFornitori voce{cod, cfp, descrizione, descrizione2};
  bool trovata = true;
  if (eliminato) {
    trovata = TogliVoce(tessarc, voce);
  } else if (nuovo) {
    AggiungiVoce(tessarc, voce);
  } else {
    trovata = CambiaVoce(tessarc, voce);
  }
  if (!trovata) ambiente.Dialogo().Messaggio(VoceNonTrovata(cod), Icona::Avviso);
  return trovata;
}

}  // namespace fenalto::ledger
