#include "screens/duedates/CampiScadenza.h"

#include "screens/common/fields/Disposizione.h"
#include "screens/ledger/FontiPrimanota.h"

namespace fenalto::screens {
namespace {

QString Nome(const char* nome) {
  return QString::fromLatin1(nome);
}

CampoCodice* ConArchivio(CampoCodice* campo, Finestre& finestre) {
  QObject::connect(campo, &CampoCodice::EventoLibero, campo,
                   [&finestre](const QString& tabella, const QString& codice) {
                     finestre.ApreFormDaEvLibero(tabella, codice);
                   });
  return campo;
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
  return ConArchivio(new CampoCodice(Nome(nome), TabellaDiClasse("P"),
                                     FonteContropartite(finestre.Sessione(), "P")),
                     finestre);
}

CampoCodice* CampoCausale(const char* nome, Finestre& finestre) {
  return ConArchivio(
      new CampoCodice(Nome(nome), QStringLiteral("CAUSALI"), FonteCausali(finestre.Sessione())),
      finestre);
}

CampoCodice* CampoBanca(const char* nome, Finestre& finestre) {
  return ConArchivio(new CampoCodice(Nome(nome), QStringLiteral("BANCHE"),
                                     Fonte(finestre, "scadenzario", "Banche", "Nome")),
                     finestre);
}

}  // namespace fenalto::screens
