#include "screens/duedates/FinestraConScadenza.h"

#include "screens/duedates/RiquadroScadenza.h"

namespace fenalto::screens {

FinestraConScadenza::FinestraConScadenza(const QString& nome, const QString& titolo,
                                         duedates::ArchivioScadenze::Uso uso, Finestre& finestre)
    : FinestraSceltaERecord(nome, titolo, finestre),
      titolo_(titolo),
      caso_(finestre.Sessione(), uso),
      riquadro_(new RiquadroScadenza(caso_, finestre,
                                     uso == duedates::ArchivioScadenze::Uso::Documento)) {}

void FinestraConScadenza::Disponi(QWidget* scelta, const QString& titoloScelta) {
  FinestraSceltaERecord::Disponi(scelta, titoloScelta, riquadro_);
  connect(riquadro_, &RiquadroScadenza::Conclusa, this, [this] {
    Abbandona();
    RileggiScelta();
    FocoScelta();
  });
  connect(riquadro_, &RiquadroScadenza::Ripristinata, this, &FinestraConScadenza::RileggiScelta);
  connect(riquadro_, &RiquadroScadenza::AbbandonoChiesto, this, [this] { Lascia(); });
  connect(riquadro_, &RiquadroScadenza::RegistrazioneChiesta, this,
          &FinestraConScadenza::VediRegistrazione);
  Abbandona();
}

void FinestraConScadenza::TogliPagine() {
  FinestraSceltaERecord::TogliPagine();
  riquadro_ = nullptr;
}

bool FinestraConScadenza::InModifica() const {
  return caso_.Aperta() && !caso_.SolaLettura() &&
         (caso_.Modificata() || (riquadro_ != nullptr && riquadro_->Pendente()));
}

void FinestraConScadenza::ChiudiRecord() {
  caso_.Abbandona();
  riquadro_->Mostra();
  MostraTitolo();
}

void FinestraConScadenza::Aggiorna() {
  RileggiScelta();
}

void FinestraConScadenza::MostraTitolo() {
  const QString aperta = QString::fromStdString(caso_.Titolo());
  setWindowTitle(aperta.isEmpty() ? titolo_ : titolo_ + QStringLiteral(" - ") + aperta);
  TitoloRecord(aperta.isEmpty() ? tr("Scadenza") : aperta);
}

void FinestraConScadenza::MostraAperta() {
  riquadro_->Mostra();
  MostraTitolo();
  GiraAlRecord();
  riquadro_->DaiFoco();
}

bool FinestraConScadenza::ApriScadenza(std::int64_t numero) {
  if (!Lascia() || !caso_.Apri(numero)) return false;
  MostraAperta();
  return true;
}

void FinestraConScadenza::NuovaScadenza(const std::vector<Coppia>& valori) {
  if (!Lascia()) return;
  caso_.Inizia(valori);
  MostraAperta();
}

void FinestraConScadenza::VediRegistrazione() {
  const auto registrazione = caso_.VedereRegCont();
  if (!registrazione) return;
  Gestore().Segui(AlNumero(registrazione->iva ? "Fatture" : "Movimenti", registrazione->numero));
}

}  // namespace fenalto::screens
