// The window "Bilancio di Verifica - Situaz.patrimoniale,costi,ricavi,utile,perdita": thin over
// BilancioVerifica. What is chosen above holds for the three pages.
#pragma once

#include "ledger/statements/BilancioVerifica.h"
#include "screens/common/reports/FinestraRapporto.h"

class QTabWidget;
class QTimer;

namespace fenalto::screens {

class GraficoConfronto;

class FinestraBilancioVerifica : public FinestraRapporto {
  Q_OBJECT

 public:
  explicit FinestraBilancioVerifica(Finestre& finestre);

  void Aggiorna() override;

 protected:
  records::StatoCampo Stato(const std::string& campo) override;
  void Cambiato(const std::string& campo) override;

 private:
  using Stampante = bool (ledger::BilancioVerifica::*)(const ledger::SceltaBilancio&);
  using Compositore = reports::Foglio (ledger::BilancioVerifica::*)(const ledger::SceltaBilancio&);

  struct Pagina {
    QString titolo;
    QString spiegazione;
    Stampante stampa;
    const char* esporta = nullptr;  ///< button of the sheet, where the page has one
    Compositore foglio = nullptr;
  };

  /// Adds a page to the window's; its buttons join `pulsanti`.
  QVBoxLayout* CreaPagina(const Pagina& pagina, QList<QAbstractButton*>& pulsanti);
  void CreaPagine();
  void StampaPagina(Stampante stampa);
  [[nodiscard]] ledger::SceltaBilancio Digitata() const;
  /// Takes period B from A.
  void ImpostaPeriodoB();
  void EsportaPagina(Compositore foglio, bool confronto);
  void ChiediGrafico();
  void MostraGrafico();

  ledger::BilancioVerifica bilancio_;
  QTabWidget* schede_;
  GraficoConfronto* grafico_;
  QTimer* attesaGrafico_;
  QVBoxLayout* periodoB_ = nullptr;
};

}  // namespace fenalto::screens
