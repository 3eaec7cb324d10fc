// Typed input fields. Each is left with what the user typed or, when that can't be read, keeps the
// text, shows it as wrong and says why.
#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>
#include <functional>

#include "core/values/Valore.h"

namespace fenalto::screens {

/// A field that a record's value is shown in and read from.
class CampoValore {
 public:
  virtual ~CampoValore() = default;
  virtual void Mostra(const Valore& valore) = 0;
  /// The value typed; an error in Italian when it can't be read.
  [[nodiscard]] virtual Esito<Valore> Letto() const = 0;
};

/// What a field of text was given to show, and what it holds since then. Control characters are
/// seen by their marks, and come back as they were when nobody typed.
struct TestoMostrato {
  std::string originale;
  QString mostrato;
  /// The value of a field that holds this; a text that was typed or pasted and can't be written is
  /// an error, and so is one that was changed and still has a mark in it.
  [[nodiscard]] Esito<Valore> Letto(const QString& testo) const;
};

/// A line of text. `lunghezza` limits the characters.
class CampoTesto : public QLineEdit, public CampoValore {
  Q_OBJECT

 public:
  explicit CampoTesto(const QString& nome, QWidget* genitore = nullptr, int lunghezza = 255);
  void Mostra(const Valore& valore) override;
  [[nodiscard]] Esito<Valore> Letto() const override;
  /// Typed letters become capitals.
  void Maiuscole(bool attive);

 protected:
  void focusInEvent(QFocusEvent* evento) override;

 private:
  TestoMostrato testo_;
};

/// A whole number.
class CampoNumero : public QLineEdit, public CampoValore {
  Q_OBJECT

 public:
  explicit CampoNumero(const QString& nome, QWidget* genitore = nullptr);
  void Mostra(const Valore& valore) override;
  [[nodiscard]] Esito<Valore> Letto() const override;

 protected:
  void focusInEvent(QFocusEvent* evento) override;
};

/// An amount: right-aligned, thousands marks, the keypad's point as the comma. `decimali` is the
/// least number of decimals shown.
class CampoImporto : public QLineEdit, public CampoValore {
  Q_OBJECT

 public:
  explicit CampoImporto(const QString& nome, QWidget* genitore = nullptr, int decimali = 2);
  void Decimali(int decimali) { decimali_ = decimali; }
  void Mostra(const Valore& valore) override;
  [[nodiscard]] Esito<Valore> Letto() const override;

 protected:
  void focusInEvent(QFocusEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;

 private:
  int decimali_;
};

/// A date: `15`, `1503`, `150324`, `15/3` complete themselves from the session's year.
class CampoData : public QLineEdit, public CampoValore {
  Q_OBJECT

 public:
  /// `annoEOggi` gives the year that completes a date, and today.
  CampoData(const QString& nome, std::function<std::pair<int, Data>()> annoEOggi,
            QWidget* genitore = nullptr);
  void Mostra(const Valore& valore) override;
  [[nodiscard]] Esito<Valore> Letto() const override;

 protected:
  void focusInEvent(QFocusEvent* evento) override;

 private:
  std::function<std::pair<int, Data>()> annoEOggi_;
};

/// A text of several lines; Tab leaves it. `lunghezza` limits the characters, 0 doesn't.
class CampoNote : public QPlainTextEdit, public CampoValore {
  Q_OBJECT

 public:
  explicit CampoNote(const QString& nome, QWidget* genitore = nullptr, int lunghezza = 0);
  void Mostra(const Valore& valore) override;
  [[nodiscard]] Esito<Valore> Letto() const override;

 private:
  int lunghezza_;
  TestoMostrato testo_;
};

}  // namespace fenalto::screens
