// The questions that the pages of registrations put to their use case, answered once.
//
// The use cases of registrations name alike what a page needs: `StatoCorrente`, whose states end
// with Aperta and RigaAperta, the records `Testa` and `Riga`, and what is done with them.
#pragma once

#include "screens/common/rows/PaginaConRighe.h"
#include "screens/common/rows/RiquadroDiRiga.h"

namespace fenalto::screens {

template <class Caso>
class RiquadroSul : public RiquadroDiRiga {
 protected:
  RiquadroSul(Caso& caso, Finestre& finestre, QWidget* genitore)
      : RiquadroDiRiga(finestre, genitore), caso_(caso) {}

  [[nodiscard]] bool RigaAperta() const override {
    return caso_.StatoCorrente() == Caso::Stato::RigaAperta;
  }
  [[nodiscard]] bool RigaNuova() const override { return caso_.RigaNuova(); }
  [[nodiscard]] bool SolaLettura() const override { return caso_.SolaLettura(); }
  [[nodiscard]] Scheda& Riga() const override { return caso_.Riga(); }
  bool EliminaRiga() override { return caso_.EliminaRiga(); }
  void AnnullaRiga() override { caso_.AnnullaRiga(); }
  void RigaLasciata(const std::string& campo) override { caso_.RigaLasciata(campo); }

  Caso& caso_;
};

template <class Caso>
class PaginaSul : public PaginaConRighe {
 public:
  [[nodiscard]] bool Aperta() const override {
    return caso_.StatoCorrente() >= Caso::Stato::Aperta;
  }

 protected:
  PaginaSul(Caso& caso, Finestre& finestre, QWidget* genitore)
      : PaginaConRighe(finestre, genitore), caso_(caso) {}

  [[nodiscard]] Scheda& Testa() const override { return caso_.Testa(); }
  [[nodiscard]] bool Nuova() const override { return caso_.Nuova(); }
  [[nodiscard]] bool Cambiata() const override {
    return !caso_.SolaLettura() && (caso_.Modificata() || Pendente());
  }
  [[nodiscard]] bool RigaAperta() const override {
    return caso_.StatoCorrente() == Caso::Stato::RigaAperta;
  }
  void TestaLasciata(const std::string& campo) override { caso_.TestaLasciata(campo); }
  void RinunciaRiga() override { caso_.AnnullaRiga(); }

  Caso& caso_;
};

}  // namespace fenalto::screens
