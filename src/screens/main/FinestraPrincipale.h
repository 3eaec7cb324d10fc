// The main window: menu, year list, function windows, and the rules by which they open and close.
#pragma once

#include <QMainWindow>
#include <functional>
#include <map>
#include <memory>

#include "screens/common/windows/FinestraFunzione.h"
#include "screens/main/MappaMenu.h"

class QAction;
class QComboBox;
class QLabel;
class QMenu;
class QScrollBar;
class QToolBar;

namespace fenalto::overview {
class IndiceVoci;
}
namespace fenalto::print {
class FabbricaUsciteQt;
}

namespace fenalto::screens {

class AreaLavoro;
class FinestraGuida;
class Sfondo;

class FinestraPrincipale : public QMainWindow, public Finestre {
  Q_OBJECT

 public:
  /// Builds a window by the name of its function; nothing when it isn't built yet.
  using Costruttore = std::function<FinestraFunzione*(Finestre&)>;
  /// By name; "NAME:SCHEDA" where only that entry of a window that serves several is built.
  using Costruttori = std::map<QString, Costruttore>;

  FinestraPrincipale(Ambiente& ambiente, Costruttori costruttori);
  ~FinestraPrincipale() override;

  /// Fills the year list and the labels from the session that was opened, and shows the background.
  void MostraSessione();
  /// Steps the year list to that year, as its scroll bar does, refusals included. False when it was
  /// refused or the company has no such year.
  bool PassaAnno(int anno);
  /// Menu "Selezione Archivi".
  void SelezioneArchivi();
  /// Opens the box that finds functions, accounts, parties and records by a few letters.
  void CercaFunzioni();
  /// Opens the guide at the chapter of the window in hand, and there at the field in hand.
  void AiutoContestuale();

  /// Opens a function as its menu entry does: right, exclusive rule, tab. Brings it to the front
  /// when it is open already. Null when it was refused or isn't built.
  FinestraFunzione* ApriFunzione(const QString& finestra, int scheda = -1);

  // Finestre
  Ambiente& Sessione() override { return ambiente_; }
  reports::FabbricaUscite& Uscite() override;
  FinestraFunzione* Segui(const Rinvio& rinvio) override;
  [[nodiscard]] bool FunzioneDisponibile(const QString& finestra) const override;
  bool ControlloUscita(FinestraFunzione& finestra) override;
  void ChiudiFinestra(FinestraFunzione& finestra) override;
  void PortaAvanti(FinestraFunzione& finestra) override;
  void SessioneCambiata() override;
  void ChiediFine() override { emit FineChiesta(); }

  /// Open function windows, the one in front last.
  [[nodiscard]] QList<FinestraFunzione*> FinestreAperte() const;
  [[nodiscard]] FinestraFunzione* Aperta(const QString& finestra) const;
  [[nodiscard]] QWidget* SfondoAperto() const;
  /// The function windows and their tabs.
  [[nodiscard]] AreaLavoro& Area() const { return *area_; }
  /// Closes all function windows without questions: records in edit are given up.
  void ChiudiTutto();

 signals:
  /// The main window was closed for good.
  void Chiusa();
  /// A function asks that the program end.
  void FineChiesta();

 protected:
  void closeEvent(QCloseEvent* evento) override;

 private:
  /// A window that fits the screen, remembered place included.
  void StaiNelloSchermo();
  void CreaMenu();
  void CreaBarra();
  /// Company, year and currency, in the bar.
  void CreaSessione();
  /// Links to the guides, at the end of the bar.
  void CreaAiuti();
  void CambiaAnno(int indice);
  void ScaricaSfondo();
  void MostraSfondo();
  /// The user comes back to the background: at once when it is there, a moment later when it was
  /// unloaded. Not while a function window is open.
  void RichiamaSfondo();
  void AggiornaStato();
  /// Entries for companies that need them: deferred-VAT invoices, withholdings.
  void MostraVociDellaDitta();
  // Help and menus of the main window's own (FinestraPrincipaleAiuto.cpp).
  void CreaMenuAiuto(QMenu& menu);
  void CreaMenuFinestre(QMenu& menu);
  void ElencaFinestre(QMenu& menu);
  void ChiudiDavanti();
  /// One after the other, with their questions, until one stays.
  void ChiudiUnaPerUna();
  void Informazioni();
  void ApriGuida(const QString& capitolo, const QString& ancora = {}, const QString& campo = {});
  [[nodiscard]] std::filesystem::path CartellaGuida() const;
  void GuidaRapida();
  void ManualeContabilita();
  void VideoCorsi();
  [[nodiscard]] std::string IndirizzoVideoCorsi();
  /// The courses are offered only while their address is set.
  void MostraVideoCorsi();
  void ApriDocumento(const QString& nome, const std::filesystem::path& file);
  /// Null when the window, or that entry of it, isn't built.
  [[nodiscard]] const Costruttore* TrovaCostruttore(const QString& finestra, int scheda) const;
  /// A destination that isn't simply a function: what has to be asked or closed before.
  struct Destinazione;
  static const Destinazione* DestinazioneDi(const std::string& nome);
  FinestraFunzione* ScegliArchivi(const Rinvio& rinvio);
  FinestraFunzione* ApriRegistri(const Rinvio& rinvio);
  FinestraFunzione* VediRegistrazione(const Rinvio& rinvio);
  FinestraFunzione* ApriArchivio(const RigaArchivio& archivio, const std::string& codice);
  /// Closes the function, if it is open, so that it can be opened anew; false when it must stay.
  bool Libera(const QString& finestra);
  FinestraFunzione* Carica(const QString& finestra, int livello, int scheda = -1);
  void Scarica(FinestraFunzione& finestra);
  /// Previews are of the session that made them.
  void ChiudiAnteprime();

  Ambiente& ambiente_;
  Costruttori costruttori_;
  AreaLavoro* area_;
  print::FabbricaUsciteQt* uscite_;
  Sfondo* sfondo_ = nullptr;
  QToolBar* barra_ = nullptr;
  QComboBox* anni_ = nullptr;
  QScrollBar* scorrimento_ = nullptr;
  QLabel* valuta_ = nullptr;
  QLabel* ditta_ = nullptr;
  QLabel* stato_ = nullptr;
  std::map<const VoceMenu*, QAction*> azioni_;
  QWidget* collegamentoVideo_ = nullptr;
  QAction* voceVideo_ = nullptr;
  std::unique_ptr<FinestraGuida> guida_;
  int richiami_ = 0;  ///< of the background, so far
  std::shared_ptr<overview::IndiceVoci> indice_;
  std::string indiceDi_;  ///< company and user whose records the index holds
  bool cambiandoAnno_ = false;
};

}  // namespace fenalto::screens
