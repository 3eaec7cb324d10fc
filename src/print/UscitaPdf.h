// Pages to a PDF file, which gets its name only when the last page is in it.
#pragma once

#include <QPdfWriter>
#include <QSaveFile>
#include <filesystem>

#include "print/UscitaDipinta.h"

namespace fenalto::print {

class UscitaPdf : public UscitaDipinta {
 public:
  explicit UscitaPdf(std::filesystem::path file, AvanzaPagine avanza = {});
  ~UscitaPdf() override;

 protected:
  Esito<bool> Apri() override;
  [[nodiscard]] QPagedPaintDevice& Foglio() override { return *scrittore_; }
  [[nodiscard]] std::string Guasto() override;
  Esito<bool> Chiudi() override;
  void Abbandona() override;

 private:
  [[nodiscard]] std::string Rifiuto() const;
  std::filesystem::path percorso_;
  QSaveFile file_;
  std::unique_ptr<QPdfWriter> scrittore_;
};

}  // namespace fenalto::print
