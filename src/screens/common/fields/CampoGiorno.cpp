#include "screens/common/fields/CampoGiorno.h"

#include "screens/common/fields/Disposizione.h"

namespace fenalto::screens {

CampoData* CampoGiorno(const char* nome, Ambiente& sessione) {
  constexpr int kCifre = 11;
  auto* campo = new CampoData(QString::fromLatin1(nome), [&sessione] {
    return std::pair(sessione.Anno(), sessione.Ora().Oggi());
  });
  LargoCaratteri(campo, kCifre);
  return campo;
}

CampoData* CampoGiornoLibero(const char* nome, Ambiente& sessione, Data proposto) {
  auto* campo = CampoGiorno(nome, sessione);
  if (!proposto.Nulla()) campo->Mostra(proposto);
  QObject::connect(campo, &QLineEdit::editingFinished, campo, [campo] {
    const auto letto = campo->Letto();
    ColoraErrato(campo, !letto);
    campo->setToolTip(letto ? QString() : QString::fromStdString(letto.Errore().messaggio));
    if (letto) campo->Mostra(letto.Valore());
  });
  return campo;
}

}  // namespace fenalto::screens
