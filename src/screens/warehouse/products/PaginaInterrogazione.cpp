#include "screens/warehouse/products/PaginaInterrogazione.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::screens {
namespace {

std::vector<ColonnaGriglia> ColonneDi(const warehouse::Interrogazione& interrogazione,
                                      Ambiente& ambiente) {
  std::vector<ColonnaGriglia> colonne;
  for (const auto& colonna : interrogazione.colonne) {
    const int decimali = colonna.prezzo ? warehouse::DecimaliPrezzo(ambiente)
                                        : warehouse::DecimaliQuantita(ambiente);
    colonne.push_back({QString::fromUtf8(colonna.titolo), colonna.tipo, colonna.larghezza, decimali,
                       QString::fromUtf8(colonna.chiave != nullptr ? colonna.chiave : "")});
  }
  return colonne;
}

}  // namespace

PaginaInterrogazione::PaginaInterrogazione(const warehouse::Interrogazione& interrogazione,
                                           Finestre& finestre, QWidget* genitore)
    : QWidget(genitore),
      interrogazione_(interrogazione),
      finestre_(finestre),
      griglia_(new Griglia(QString::fromLatin1(interrogazione.griglia),
                           QStringLiteral("CodiciRiga"),
                           ColonneDi(interrogazione, finestre.Sessione()))),
      aggiorna_(Pulsante(QString::fromLatin1(interrogazione.aggiorna), tr("Aggiorna"), tr("F5"))) {
  auto* fila = new QHBoxLayout;
  if (interrogazione.opzione != nullptr) {
    tutti_ = Casella(interrogazione.casella, QString::fromUtf8(interrogazione.opzione));
    fila->addWidget(tutti_);
    connect(tutti_, &QCheckBox::toggled, this, [this] { Leggi(prodotto_); });
  }
  fila->addStretch(1);
  fila->addWidget(aggiorna_);
  griglia_->QuandoVuota(tr("niente per questo prodotto"));
  auto* colonna = new QVBoxLayout(this);
  colonna->addLayout(fila);
  colonna->addWidget(griglia_, 1);
  connect(aggiorna_, &QPushButton::clicked, this, [this] { Leggi(prodotto_); });
  connect(griglia_, &Griglia::RigaDoppioClic, this, &PaginaInterrogazione::Apri);
  connect(griglia_, &Griglia::RigaInvio, this, &PaginaInterrogazione::Apri);
}

PaginaInterrogazione::~PaginaInterrogazione() {
  griglia_->Modello().Basta();
}

void PaginaInterrogazione::Leggi(const std::string& prodotto) {
  prodotto_ = prodotto;
  if (prodotto.empty()) {
    griglia_->Modello().Righe({});
    return;
  }
  auto lettore = std::make_shared<warehouse::LettoreInterrogazione>(
      finestre_.Sessione(), interrogazione_.genere, prodotto,
      tutti_ != nullptr && tutti_->isChecked());
  griglia_->Modello().Pagine([lettore](int) { return lettore->Avanti(); });
}

void PaginaInterrogazione::Apri(int indice) {
  if (indice < 0) return;
  const Rinvio rinvio =
      warehouse::RinvioDellaRiga(interrogazione_.genere, griglia_->Modello().Riga(indice));
  if (!finestre_.FunzioneDisponibile(Qs(rinvio.funzione))) return;
  const bool documento = rinvio.funzione == "FattureCli";
  if (documento && !finestre_.Sessione().Dialogo().Conferma(
                       "Apro la registrazione che ha generato il movimento:\n" + rinvio.classe +
                       " n. " + rinvio.codice + " / " + std::to_string(rinvio.anno))) {
    return;
  }
  finestre_.Segui(rinvio);
}

}  // namespace fenalto::screens
