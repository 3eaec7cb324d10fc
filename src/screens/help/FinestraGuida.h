// The guide in a window of its own: chapters on the left, or what the search has found; the chapter
// on the right.
//
// It is a window of the desktop and not one of the workspace: a clerk reads it beside the form that
// she fills in, on another screen if there is one, and it stands in the way neither of a change of
// year nor of a function that wants to be alone.
#pragma once

#include <QWidget>
#include <filesystem>

#include "help/Guida.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QStackedWidget;
class QToolButton;

namespace fenalto::screens {

class PaginaGuida;

class FinestraGuida : public QWidget {
  Q_OBJECT

 public:
  /// `cartella` holds the chapters.
  explicit FinestraGuida(const std::filesystem::path& cartella);
  ~FinestraGuida() override;

  /// Comes to the front with that place; `campo` is a field's caption, looked for in the chapter.
  void Apri(const help::Posto& posto, const QString& campo = {});
  /// The chapter that is shown.
  [[nodiscard]] QString Capitolo() const;

 signals:
  /// A link out of the guide.
  void Fuori(const QUrl& indirizzo);

 protected:
  void keyPressEvent(QKeyEvent* evento) override;
  void closeEvent(QCloseEvent* evento) override;
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  QWidget* CreaLato();
  QWidget* CreaBarra();
  void Mostra(const help::Posto& posto, const QStringList& parole);
  /// Adds the place to those that "Indietro" goes through; while one searches, they are one.
  void Vai(const help::Posto& posto, const QStringList& parole = {}, bool cercando = false);
  void Storia(int passo);
  void Cerca();
  void ScegliTrovato(int riga);
  [[nodiscard]] QStringList Parole() const;

  QString cartella_;
  help::Guida guida_;
  std::vector<help::Trovato> trovati_;
  QLineEdit* cerca_;
  QLabel* esito_;
  QStackedWidget* elenchi_;
  QListWidget* capitoli_;
  QListWidget* elencoTrovati_;
  PaginaGuida* pagina_;
  QToolButton* indietro_ = nullptr;
  QToolButton* avanti_ = nullptr;
  struct Visto {
    help::Posto posto;
    QStringList parole;
    bool cercando = false;
  };
  std::vector<Visto> storia_;
  std::size_t ora_ = 0;
};

}  // namespace fenalto::screens
