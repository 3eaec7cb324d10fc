// The selector `Rt1` of a registration: its number, the button that opens it and what it is.
//
// Its controls are laid into a row of the page's own, beside what else chooses there.
#pragma once

#include <QObject>
#include <functional>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace fenalto::screens {

class CampoNumero;
class ElencoCercato;

class SelettoreArticolo : public QObject {
  Q_OBJECT

 public:
  /// `descrizione` tells what a number stands for, or that there is nothing under it.
  SelettoreArticolo(std::function<QString(std::int64_t)> descrizione, QObject* genitore);

  /// Adds the controls to a row; the description takes the room that `peso` gives it.
  void Disponi(QHBoxLayout& riga, int peso, const QString& didascalia = tr("Articolo n."));
  /// Takes the number that is pointed at in a list; one chosen there is opened.
  void Segui(const ElencoCercato& elenco);
  /// Puts a number into the selector; 0 empties it.
  void Seleziona(std::int64_t numero);
  void Foco();
  /// Reads again what the number stands for.
  void Descrivi();
  /// Asks for the registration of the number; with none, goes where it is typed.
  void Apri();
  [[nodiscard]] QPushButton* PulsanteApri() const { return apri_; }
  [[nodiscard]] QLabel& Descrizione() const { return *descritto_; }

 signals:
  void ApriChiesto(qint64 numero);

 private:
  std::function<QString(std::int64_t)> descrizione_;
  CampoNumero* numero_;
  QPushButton* apri_;
  QLabel* descritto_;
};

}  // namespace fenalto::screens
