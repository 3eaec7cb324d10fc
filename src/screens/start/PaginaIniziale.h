// The start page, shown on the background while no function window covers it: what is due, what
// comes next, what was touched last, whether the copies are well, and the ways into the daily work.
//
// It stands at once with its ways in; what has to be read comes after it was painted, a piece at a
// time between events, and again whenever the user comes back to it.
#pragma once

#include <QWidget>
#include <vector>

#include "screens/common/windows/Finestre.h"

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace fenalto::screens {

class RiquadroPagina;
class Via;

class PaginaIniziale : public QWidget {
  Q_OBJECT

 public:
  PaginaIniziale(Finestre& finestre, QWidget* genitore);

  /// What it shows is read again as soon as it is in view.
  void Aggiorna();
  /// The first way in gets the focus.
  void PrendiFoco();
  /// Where links of the background go, beside the company's name.
  [[nodiscard]] QVBoxLayout* Angolo() const { return angolo_; }

 signals:
  /// A chapter of the guide is asked for.
  void Aiuto(const QString& capitolo);

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  /// Due dates of a class: overdue, and due in the next days.
  struct Scadenze {
    RiquadroPagina* riquadro = nullptr;
    Via* scadute = nullptr;
    Via* vicine = nullptr;
  };

  void CreaTesta(QVBoxLayout& colonna);
  void CreaVie(QVBoxLayout& colonna);
  void CreaRiquadri(QVBoxLayout& colonna);
  Scadenze CreaScadenze(const QString& titolo, const char* classe);
  Via* CreaVia(const QString& nome, RiquadroPagina* riquadro, const Rinvio& rinvio);
  /// Whether a function can be opened: it is built, and the user has the right.
  [[nodiscard]] bool Aperta(const char* funzione, int livello) const;
  void MostraTesta();
  /// What the user that is logged in now may open.
  void MostraSecondoDiritti();

  // What is read, a step at a time (PaginaInizialeLettura.cpp).
  void Passo();
  void LeggiScadenze(const Scadenze& dove, const char* classe);
  void LeggiIva();
  void LeggiRecenti();
  void LeggiCopie();
  [[nodiscard]] QString Euro(Importo importo) const;

  Finestre& finestre_;
  Ambiente& ambiente_;
  QVBoxLayout* angolo_ = nullptr;
  QLabel* ditta_ = nullptr;
  QLabel* chi_ = nullptr;
  QPushButton* creaDitta_ = nullptr;
  std::vector<Via*> vie_;  ///< the main ones
  Scadenze clienti_;
  Scadenze fornitori_;
  RiquadroPagina* iva_ = nullptr;
  Via* prossimaIva_ = nullptr;
  RiquadroPagina* recenti_ = nullptr;
  std::vector<Via*> ultimi_;
  std::vector<Rinvio> rinvii_;  ///< of `ultimi_`
  RiquadroPagina* copie_ = nullptr;
  Via* copia_ = nullptr;
  bool daLeggere_ = true;
  bool inLettura_ = false;
  int passo_ = 0;
};

}  // namespace fenalto::screens
