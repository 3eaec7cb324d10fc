#include "screens/duedates/CampiScadenza.h"

#include "screens/common/fields/Disposizione.h"
#include "screens/ledger/FontiPrimanota.h"

namespace fenalto::screens {
namespace {

QString Nome(const char* nome) {
  return QString::fromLatin1(nome);
}

std::shared_ptr<FonteCodici> Fonte(Finestre& finestre, const char* archivio, const char* tabella,
                                   const char* descrizione) {
  Ambiente& sessione = finestre.Sessione();
  return std::make_shared<FonteTabella>(
      [&sessione, archivio]() -> Archivio& { return sessione.ArchivioDi(archivio); }, tabella,
      "Cod", descrizione);
}

}  // namespace

CampoCodice* CampoConto(const char* nome, Finestre& finestre) {
  return new CampoCodice(Nome(nome), TabellaDiClasse("P"),
                         FonteContropartite(finestre.Sessione(), "P"));
}

CampoCodice* CampoCausale(const char* nome, Finestre& finestre) {
  return new CampoCodice(Nome(nome), QStringLiteral("CAUSALI"), FonteCausali(finestre.Sessione()));
}

CampoCodice* CampoTipo(const char* nome, Finestre& finestre) {
  return new CampoCodice(Nome(nome), QString(),
                         Fonte(finestre, "tessarc", "tipipagamento", "Descrizione"));
}

CampoCodice* CampoPagamento(const char* nome, Finestre& finestre) {
  return new CampoCodice(Nome(nome), QStringLiteral("CODICIPAGAMENTO"),
                         Fonte(finestre, "tessarc", "Pagamento", "Descrizione"));
}

CampoCodice* CampoBanca(const char* nome, Finestre& finestre) {
  return new CampoCodice(Nome(nome), QStringLiteral("BANCHE"),
                         Fonte(finestre, "scadenzario", "Banche", "Nome"));
}

}  // namespace fenalto::screens
