// A small picture of an image file, or why there is none.
#pragma once

#include <QLabel>
#include <filesystem>

namespace fenalto::screens {

class AnteprimaImmagine : public QLabel {
  Q_OBJECT

 public:
  explicit AnteprimaImmagine(const QString& nome);
  /// An empty path shows nothing. The file is read again only when it is another one.
  void Mostra(const std::filesystem::path& file);

 private:
  std::filesystem::path mostrata_;
};

}  // namespace fenalto::screens
