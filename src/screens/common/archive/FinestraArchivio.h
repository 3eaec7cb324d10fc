// The window of every archive of codes: the choice of a record on the left (`SSTab1`: selector
// `Rt1`, list, filter), the record on the right (`SSTab2`), which is enabled while one is open. The
// choice stays in use: another code opens after the question about changes.
//
// It binds what the description says and knows no rule. An archive with more than fields (rows of
// its own, a test panel) derives from it and adds pages to `SSTab2`.
#pragma once

#include <memory>

#include "core/archives/ArchivioCodici.h"
#include "screens/common/windows/FinestraFunzione.h"

class QTabWidget;
class QVBoxLayout;

namespace fenalto::screens {

class Legatura;

class FinestraArchivio : public FinestraFunzione {
  Q_OBJECT

 public:
  FinestraArchivio(archives::DescrizioneArchivio descrizione, Finestre& finestre);
  ~FinestraArchivio() override;

  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  void ApriScheda(int scheda) override;
  void ApriRecord(const Rinvio& rinvio) override;
  bool Indietro() override;
  void Aggiorna() override;

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;
  bool Invio(QWidget& campo) override;
  /// Ctrl+Enter in the choice, for a field that has opened the archive, takes the code there.
  bool PremiConferma() override;
  [[nodiscard]] std::string CodiceDaRendere() const override;
  void RichiestaDa(const QString& campo) override;
  /// Enter was pressed in the last field of a page: to `Conferma`.
  virtual void DopoUltimoCampo();
  [[nodiscard]] archives::ArchivioCodici& Archivio();
  /// Pages of the choice, for one of an archive's own.
  [[nodiscard]] QTabWidget& SchedeScelta();
  [[nodiscard]] QTabWidget& SchedeRecord();
  /// Layout of the first page of `SSTab2`, under the described fields.
  [[nodiscard]] QVBoxLayout& PaginaRecord();
  /// Layout of a described page, under its frames.
  [[nodiscard]] QVBoxLayout& Pagina(const std::string& nome);
  /// Binding of the record's controls; a derived window binds its own to the same record.
  [[nodiscard]] Legatura& Legami();
  /// The record was opened, begun or changed by a rule: shows it in all controls.
  virtual void MostraRecord();
  /// Before a confirmation: takes what is typed in controls that aren't bound. False stops it.
  virtual bool RaccogliAltro() { return true; }
  /// Whether a derived window holds changes of its own.
  [[nodiscard]] virtual bool AltroModificato() const { return false; }

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens
