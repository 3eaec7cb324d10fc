// How windows lay their controls out: labels, widths in characters, letters on buttons.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QList>

class QBoxLayout;
class QCheckBox;
class QPushButton;
class QTabWidget;

namespace fenalto::screens {

/// A caption of `controllo`, which screen readers take as its name.
QLabel* Didascalia(const QString& testo, QWidget* controllo);

/// Adds a field to a line, after its caption; the field takes the room that `peso` gives it.
void Affianca(QBoxLayout& riga, const QString& didascalia, QWidget* campo, int peso = 0);

/// Makes a field as wide as that many characters of its own typeface.
void LargoCaratteri(QWidget* campo, int caratteri);

/// A button with its object name; the tooltip is the caption with `tasto` ("Ins") when not empty.
QPushButton* Pulsante(const QString& nome, const QString& testo, const QString& tasto = QString());

/// A check box with its object name.
QCheckBox* Casella(const char* nome, const QString& testo);

/// The object name of tabs whose pages lie on the ground of their window.
void PreparaSchede(QTabWidget& schede, const QString& nome);

/// Lets only the page in sight say how much room the pages need.
void MisuraDellaPagina(QTabWidget& schede);

/// Shows a field's text as wrong, in a red that is read on the palette's own background, or as
/// usual.
void ColoraErrato(QWidget* campo, bool errato);

/// Moves the focus to a button and shows that it is there, which the toolkit does only after a key.
void FocoInVista(QWidget* controllo);

/// Gives the focus from one to the next by Tab.
void OrdinaFuochi(const QList<QWidget*>& controlli);

/// The button has a key besides its letter, which its tooltip names.
bool HaTasto(const QAbstractButton& pulsante);

/// Gives each button an Alt letter of its caption that no other of the list and no menu of the main
/// window has, or one after the caption where none of its own is left; those first in the list
/// before the others.
void AssegnaMnemoniche(const QList<QAbstractButton*>& pulsanti);

/// The same for all buttons of a window that can be used or have a letter already: those that are
/// never in sight together may share one.
void DistribuisciLettere(const QWidget& finestra);

}  // namespace fenalto::screens
