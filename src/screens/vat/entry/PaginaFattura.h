// Second page of the VAT registrations: the open one with its rows.
#pragma once

#include "screens/common/rows/SulCasoUso.h"
#include "screens/common/windows/Finestre.h"
#include "vat/entry/RegistrazioneIva.h"

class QHBoxLayout;
class QVBoxLayout;

namespace fenalto::screens {

class CampiForma;
class PannelloContabile;

class PaginaFattura : public PaginaSul<vat::RegistrazioneIva> {
  Q_OBJECT

 public:
  PaginaFattura(vat::RegistrazioneIva& fatture, Finestre& finestre, QWidget* genitore = nullptr);

  void Entra() override;
  void Mostra() override;
  /// Takes the rows of the party's last registration and begins to fill them.
  void ProponiRighe();
  /// Repeats in a field of the head what the last registration had; false for another control.
  bool Ripeti(QWidget* campo);

 protected:
  void ApriRiga(int indice) override;
  void NuovaRiga() override;
  std::optional<std::int64_t> ConfermaRegistrazione() override;
  bool EliminaRegistrazione() override;
  void FocoData() override;
  [[nodiscard]] QList<QList<QWidget*>> OrdineTesta() const override;
  void DopoRiga(qint64 posi) override;
  void DopoRinuncia() override;

 private:
  [[nodiscard]] static Griglia* CreaGriglia();
  QVBoxLayout* DisponiSinistra();
  QHBoxLayout* DisponiComandiRighe();
  QHBoxLayout* DisponiPiede();
  void OrdineTab();
  /// Shows what the register's type and the record allow in head and options.
  void MostraCampi(bool scrivibile);
  /// Opens the next proposed row without amounts after a position; false when there is none.
  bool ApriProposta(qint64 dopo);
  void MostraElencoRighe();
  void MostraProposta();
  /// Opens the due dates of the registration.
  void VediScadenze();
  std::string DescrittoConto(const std::string& conto);

  CampiForma* testa_;
  QWidget* opzioniInVista_;
  CampiForma* opzioni_;
  PannelloContabile* contabile_;
  QLabel* proposta_;
  QPushButton* proponi_;
  QPushButton* scadenze_;
  bool percorre_ = false;  ///< the proposed rows are being filled one after the other
};

}  // namespace fenalto::screens
