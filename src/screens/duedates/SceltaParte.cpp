#include "screens/duedates/SceltaParte.h"

#include <QComboBox>
#include <QHBoxLayout>

#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"

namespace fenalto::screens {
namespace {

constexpr int kCifreCodiceParte = 12;

/// Parties of a class, or of both when it is empty.
std::shared_ptr<archives::FonteCodici> FonteDi(Ambiente& sessione, const std::string& classe) {
  if (!classe.empty()) return archives::FonteConti(sessione, classe);
  return archives::Fonte(sessione, "parti");
}

}  // namespace

SceltaParte::SceltaParte(Finestre& finestre, const QString& vuota, QWidget* genitore, Classe classe)
    : QWidget(genitore),
      finestre_(finestre),
      classe_(new QComboBox),
      codice_(new CampoCodice(QStringLiteral("CliFor"),
                              archives::FonteConti(finestre.Sessione(), "C"))) {
  classe_->setObjectName(QStringLiteral("CFPx"));
  if (classe == Classe::Facoltativa) {
    classe_->addItem(QString(), QString());
    codice_->Fonte(FonteDi(finestre.Sessione(), {}));
  }
  classe_->addItem(QStringLiteral("C"), QStringLiteral("C"));
  classe_->addItem(QStringLiteral("F"), QStringLiteral("F"));
  classe_->setToolTip(tr("C cliente, F fornitore"));
  codice_->setPlaceholderText(vuota);
  codice_->Etichetta()->setObjectName(QStringLiteral("CliForDescrizione"));
  auto* riga = new QHBoxLayout(this);
  riga->setContentsMargins(0, 0, 0, 0);
  riga->addWidget(classe_);
  riga->addWidget(ConDescrizione(codice_, kCifreCodiceParte), 1);
  connect(classe_, &QComboBox::currentIndexChanged, this, &SceltaParte::CambiaClasse);
  connect(codice_, &CampoCodice::Scelto, this, &SceltaParte::Lasciata);
  connect(codice_, &QLineEdit::editingFinished, this, &SceltaParte::Lasciata);
}

std::string SceltaParte::Cfp() const {
  return classe_->currentData().toString().toStdString();
}

std::string SceltaParte::Codice() const {
  return codice_->Codice();
}

bool SceltaParte::Esiste() const {
  return codice_->Esiste();
}

void SceltaParte::Imposta(const std::string& cfp, const std::string& codice) {
  classe_->setCurrentIndex(classe_->findData(QString::fromStdString(cfp)));
  codice_->Mostra(Valore(codice));
  Lasciata();
}

void SceltaParte::Bloccata(bool classe, bool codice) {
  classe_->setEnabled(!classe);
  codice_->setEnabled(!codice);
}

void SceltaParte::CambiaClasse() {
  codice_->Fonte(FonteDi(finestre_.Sessione(), Cfp()));
  codice_->Mostra(Valore(std::string()));
  emit ClasseCambiata();
  Lasciata();
}

void SceltaParte::Lasciata() {
  codice_->Risolvi();
  std::string ora = Cfp() + Codice();
  if (ora == detta_) return;
  detta_ = std::move(ora);
  emit ParteCambiata();
}

}  // namespace fenalto::screens
