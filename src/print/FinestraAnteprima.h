// A report on the screen: opens on the first page while the rest is composed.
//
// The pages wait packed in a temporary file, one of them is looked at. While pages still come the
// windows of the functions take no input (the report is inside one of their actions) and the
// program's events are run between pages, so the first page can be read and the report given up.
#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "core/reports/Uscita.h"
#include "core/session/Porte.h"
#include "print/DepositoPagine.h"
#include "print/Pittore.h"
#include "print/RicercaPagina.h"
#include "print/UscitaDipinta.h"

class QLabel;
class QLineEdit;
class QListView;
class QPrinter;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QToolButton;

namespace fenalto::print {

class ModelloPagine;
class VistaPagina;

class FinestraAnteprima : public QWidget {
  Q_OBJECT

 public:
  /// `sopra` is the main window, which takes no input while composing; `dialoghi` must outlive
  /// this.
  FinestraAnteprima(const QString& titolo, Dialoghi& dialoghi, QWidget* sopra);
  ~FinestraAnteprima() override;

  /// Takes the next page; the first brings the window up. False when the user gave up or the page
  /// can't be kept (see Errore).
  bool Aggiungi(const reports::Pagina& pagina);
  /// All pages are there: the window lives on alone and is deleted when it closes.
  void Completa();
  [[nodiscard]] bool Annullata() const { return annullata_; }
  [[nodiscard]] const std::optional<Errore>& Guasto() const { return guasto_; }

  [[nodiscard]] int Pagine() const { return deposito_.Pagine(); }
  /// Index of the page shown, from 0.
  [[nodiscard]] int PaginaCorrente() const { return corrente_; }
  void VaiAPagina(int indice);
  /// Goes to the next (1) or previous (-1) place of the searched text, round the ends; false when
  /// there is none.
  bool Cerca(const QString& testo, int verso);
  void Copia();
  /// Writes all pages to a PDF, or prints them; what goes wrong is told.
  bool SalvaPdf(const std::filesystem::path& file);
  bool Stampa(const std::function<std::unique_ptr<QPrinter>()>& stampante);
  [[nodiscard]] VistaPagina& Vista() { return *vista_; }

 signals:
  /// A text with a link was double-clicked.
  void RinvioScelto(const fenalto::Rinvio& rinvio);

 protected:
  void closeEvent(QCloseEvent* evento) override;
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  void Costruisci();
  QWidget* BarraComandi();
  void Collega();
  void Scorciatoie();
  void MostraAvanzamento();
  void Occupa(const QString& testo);
  void Libera();
  void ChiediPdf();
  [[nodiscard]] int Totale() const { return composta_ ? Pagine() : 0; }
  bool Versa(UscitaDipinta& uscita);
  /// Shows that it works and runs events now and then; false when the user cancelled.
  bool Respira(int fatte);

  QString titolo_;
  Dialoghi& dialoghi_;
  QWidget* sopra_;
  DepositoPagine deposito_;
  Pittore pittore_;
  std::optional<Errore> guasto_;
  int corrente_ = -1;
  bool composta_ = false;
  bool annullata_ = false;
  bool occupata_ = false;
  bool fermata_ = false;
  bool chiusuraChiesta_ = false;
  QElapsedTimer respiro_;
  QString cercato_;

  VistaPagina* vista_ = nullptr;
  ModelloPagine* modello_ = nullptr;
  QListView* elenco_ = nullptr;
  QSpinBox* numero_ = nullptr;
  QLabel* totale_ = nullptr;
  QLabel* zoom_ = nullptr;
  QToolButton* larghezza_ = nullptr;
  QLineEdit* cerca_ = nullptr;
  QLabel* stato_ = nullptr;
  QProgressBar* barra_ = nullptr;
  QPushButton* annulla_ = nullptr;
  QList<QWidget*> soloComposta_;
};

}  // namespace fenalto::print
