// An image in the size that there is for it; a text where there is none to show.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <filesystem>

namespace fenalto::screens {

class Anteprima : public QWidget {
  Q_OBJECT

 public:
  explicit Anteprima(const QString& nome, QWidget* genitore = nullptr);
  /// Shows the file; `senza` where there is none. One that is no image says so.
  void Mostra(const std::filesystem::path& file, const QString& senza);
  [[nodiscard]] bool ConImmagine() const { return !immagine_.isNull(); }
  [[nodiscard]] QSize sizeHint() const override { return {220, 160}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {120, 80}; }

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  std::filesystem::path file_;
  QPixmap immagine_;
  QString testo_;
};

}  // namespace fenalto::screens
