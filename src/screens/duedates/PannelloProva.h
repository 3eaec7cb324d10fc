// The test of a payment code: the due dates that it gives for a date and an amount.
#pragma once

#include <QWidget>
#include <functional>

#include "duedates/codes/CodiciPagamento.h"

class QCalendarWidget;
class QLabel;

namespace fenalto::screens {

class CampoData;
class CampoImporto;
class Griglia;

class PannelloProva : public QWidget {
  Q_OBJECT

 public:
  /// `codice` gives the code as it stands on the screen, nothing when a field can't be read.
  PannelloProva(Ambiente& ambiente,
                std::function<std::optional<duedates::CodicePagamento>()> codice,
                QWidget* genitore = nullptr);

  /// Takes the due dates of the code before off.
  void Svuota();

 private:
  void Prova();
  void MostraCalendario(const std::vector<duedates::RigaProva>& righe);

  Ambiente& ambiente_;
  std::function<std::optional<duedates::CodicePagamento>()> codice_;
  CampoData* data_;
  CampoImporto* importo_;
  QLabel* avvisi_;
  Griglia* griglia_;
  QCalendarWidget* calendario_;
};

}  // namespace fenalto::screens
