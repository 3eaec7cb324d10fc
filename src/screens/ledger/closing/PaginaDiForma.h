// A page whose fields are those of one record, with buttons that do something with them.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "core/records/DescrizioneForma.h"
#include "core/session/Scheda.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/windows/Finestre.h"

class QVBoxLayout;

namespace fenalto::screens {

class PaginaDiForma : public QWidget {
  Q_OBJECT

 public:
  ~PaginaDiForma() override;
  /// Shows the record and the state of its fields.
  void Mostra();
  /// A field holds text that isn't in the record yet.
  [[nodiscard]] bool Pendente() const { return legatura_->Pendente(); }

 signals:
  /// Something was done to the books.
  void Fatto();

 protected:
  PaginaDiForma(Finestre& finestre, Scheda& record);
  void Compila(records::DescrizioneForma forma, QVBoxLayout& colonna);
  /// A button of the form: what it does with what is typed, and the field it was refused for.
  void Premuto(const std::string& pulsante, const std::function<bool()>& lavoro,
               const std::function<std::string()>& rifiutato);
  /// Takes what is typed, does the work unless some is under way, and shows the record again.
  void Esegui(const std::function<bool()>& lavoro, const std::function<std::string()>& rifiutato);
  /// A field was left with a new value.
  virtual void Lasciato(const std::string& /*campo*/) {}
  [[nodiscard]] virtual records::StatoCampo Stato(const std::string& /*campo*/) const { return {}; }

  [[nodiscard]] Finestre& Gestore() const { return finestre_; }
  [[nodiscard]] CampiForma& Campi() const { return *campi_; }

 private:
  Finestre& finestre_;
  Scheda& record_;
  Legatura* legatura_;
  std::unique_ptr<CampiForma> campi_;
  bool inCorso_ = false;
};

}  // namespace fenalto::screens
