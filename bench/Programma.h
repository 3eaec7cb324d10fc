// The program with its main window shown, and how long a window of it takes to open.
#pragma once

#include <QString>
#include <functional>
#include <string>

#include "bench/DialoghiMuti.h"
#include "bench/Misura.h"
#include "screens/main/Applicazione.h"

namespace fenalto::banco {

/// The program on a company, on its last year.
struct Programma {
  Programma(const OpzioniAmbiente& opzioni, const std::string& ditta);
  DialoghiMuti dialoghi;
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  screens::Applicazione applicazione;
};

/// What is done in a window once it is up; part of what is measured.
using DopoApertura = std::function<void(screens::FinestraFunzione&)>;

/// Seconds from asking for a window to its picture on the screen; the window is closed after.
double ApriEGuarda(Programma& programma, const QString& finestra, const DopoApertura& dopo = {});

/// Median of the openings of a window on `grande` to that on `piccola`; the limit is 1.5. Needs a
/// QApplication.
Rapporto MisuraApertura(const std::string& nome, const OpzioniAmbiente& opzioni,
                        const QString& finestra, const std::string& grande,
                        const std::string& piccola, const DopoApertura& dopo = {});

}  // namespace fenalto::banco
