#include "screens/duedates/CampiScadenza.h"

#include "screens/common/fields/FonteDescritta.h"
#include "screens/ledger/FontiForma.h"

namespace fenalto::screens {
namespace {

CampoCodice* Codice(const char* nome, const records::FonteCampo& fonte, Finestre& finestre) {
  auto* campo = new CampoCodice(QString::fromLatin1(nome), QString::fromStdString(fonte.archivio),
                                CreaFonte(finestre.Sessione(), fonte));
  QObject::connect(campo, &CampoCodice::EventoLibero, campo,
                   [&finestre](const QString& tabella, const QString& codice) {
                     finestre.ApreFormDaEvLibero(tabella, codice);
                   });
  return campo;
}

}  // namespace

CampoCodice* CampoConto(const char* nome, Finestre& finestre) {
  return Codice(nome, DaContropartite(), finestre);
}

CampoCodice* CampoCausale(const char* nome, Finestre& finestre) {
  return Codice(nome, DaCausali(), finestre);
}

CampoCodice* CampoBanca(const char* nome, Finestre& finestre) {
  return Codice(nome, DaBanche(), finestre);
}

}  // namespace fenalto::screens
