#include "screens/ledger/closing/PaginaDiForma.h"

#include <QAbstractButton>
#include <QVBoxLayout>

#include "screens/common/fields/Qs.h"
#include "screens/common/windows/InCorso.h"

namespace fenalto::screens {

PaginaDiForma::PaginaDiForma(Finestre& finestre, Scheda& record)
    : finestre_(finestre),
      record_(record),
      legatura_(new Legatura([this]() -> Scheda& { return record_; }, finestre.Sessione().Dialogo(),
                             this)) {}

PaginaDiForma::~PaginaDiForma() {
  hide();  // nothing is read from its fields any more
}

void PaginaDiForma::Compila(records::DescrizioneForma forma, QVBoxLayout& colonna) {
  campi_ = std::make_unique<CampiForma>(finestre_.Sessione(), std::move(forma), QList{legatura_},
                                        colonna);
  connect(legatura_, &Legatura::Lasciato, this, [this](const QString& campo, bool cambiato) {
    if (!cambiato) return;
    Lasciato(campo.toStdString());
    Mostra();
  });
}

void PaginaDiForma::Premuto(const std::string& pulsante, const std::function<bool()>& lavoro,
                            const std::function<std::string()>& rifiutato) {
  connect(&campi_->Pulsante(pulsante), &QAbstractButton::clicked, this,
          [this, lavoro, rifiutato] { Esegui(lavoro, rifiutato); });
}

void PaginaDiForma::Esegui(const std::function<bool()>& lavoro,
                           const std::function<std::string()>& rifiutato) {
  if (inCorso_ || !legatura_->Raccogli()) return;
  bool fatto = false;
  {
    const InCorso inCorso(inCorso_);
    fatto = lavoro();
  }
  Mostra();
  if (fatto) {
    emit Fatto();
  } else if (const std::string campo = rifiutato(); !campo.empty()) {
    campi_->DaiFoco(Qs(campo));
  }
}

void PaginaDiForma::Mostra() {
  legatura_->Mostra();
  campi_->Applica([this](const std::string& campo) { return Stato(campo); }, false);
}

}  // namespace fenalto::screens
