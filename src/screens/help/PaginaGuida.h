// A chapter of the guide on the screen: text with its pictures, headings that links lead to, marks
// on what was looked for.
#pragma once

#include <QTextBrowser>

namespace fenalto::screens {

class PaginaGuida : public QTextBrowser {
  Q_OBJECT

 public:
  explicit PaginaGuida(QWidget* genitore);

  /// Shows a file of `cartella`, from the heading of that anchor on, with the words marked (without
  /// regard to case and accents); the first mark is brought into view when there is no anchor.
  void MostraCapitolo(const QString& cartella, const QString& file, const QString& ancora,
                      const QStringList& parole);
  [[nodiscard]] QString File() const { return file_; }
  /// How many places are marked.
  [[nodiscard]] qsizetype Segni() const { return extraSelections().size(); }

 signals:
  /// A link to a chapter ("05-fatture.md", anchor empty for its beginning).
  void Richiesto(const QString& file, const QString& ancora);
  /// A link out of the guide.
  void Fuori(const QUrl& indirizzo);

 protected:
  QVariant loadResource(int tipo, const QUrl& nome) override;
  void resizeEvent(QResizeEvent* evento) override;

 private:
  void Segui(const QUrl& indirizzo);
  void Impagina();
  void Segna(const QStringList& parole);
  void VaiA(const QString& ancora);
  [[nodiscard]] int LarghezzaTesto() const;
  QString cartella_;
  QString file_;
  QString ancora_;
  QStringList parole_;
  int larghezza_ = 0;  ///< of the text, to which pictures were brought
};

}  // namespace fenalto::screens
