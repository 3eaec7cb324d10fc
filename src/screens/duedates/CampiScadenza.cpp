#include "screens/duedates/CampiScadenza.h"

namespace fenalto::screens {
namespace {

CampoCodice* Campo(const char* nome, Finestre& finestre, const char* fonte) {
  return new CampoCodice(QString::fromLatin1(nome), archives::Fonte(finestre.Sessione(), fonte));
}

}  // namespace

CampoCodice* CampoConto(const char* nome, Finestre& finestre) {
  return Campo(nome, finestre, "contropartite");
}

CampoCodice* CampoCausale(const char* nome, Finestre& finestre) {
  return Campo(nome, finestre, "causali");
}

CampoCodice* CampoBanca(const char* nome, Finestre& finestre) {
  return Campo(nome, finestre, "banche");
}

}  // namespace fenalto::screens
