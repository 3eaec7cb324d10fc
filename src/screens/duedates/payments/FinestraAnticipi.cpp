#include "screens/duedates/payments/FinestraAnticipi.h"

#include "duedates/payments/AnticipoFattura.h"

namespace fenalto::screens {

FinestraAnticipi::FinestraAnticipi(Finestre& finestre)
    : FinestraScadenzaDigitata(QStringLiteral("AccontiPrimaDiFattura"),
                               tr("Registrazione anticipi su fatture da emettere o ricevere"),
                               static_cast<int>(duedates::FinestraPagamento::Anticipi),
                               std::make_unique<duedates::AnticipoFattura>(finestre.Sessione()),
                               finestre) {
  Disponi();
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
}

}  // namespace fenalto::screens
