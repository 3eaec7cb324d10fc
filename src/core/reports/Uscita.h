// Where the pages of a report go: text, PDF, printer, preview. The report never knows which.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/reports/Pagina.h"
#include "core/session/Porte.h"
#include "core/values/Esito.h"

namespace fenalto::reports {

class Uscita {
 public:
  virtual ~Uscita() = default;
  /// Takes text only: no graphic mode.
  [[nodiscard]] virtual bool SoloTesto() const = 0;
  /// Name of the document and of the spool job.
  virtual void Titolo(const std::string& titolo) = 0;
  /// Takes a page; false when the user cancelled or the output failed (see Fine).
  virtual bool Aggiungi(Pagina pagina) = 0;
  /// Shows, prints or closes the file: a file gets its name only here, so that none is left half
  /// written. The error says what failed; false when the user cancelled.
  virtual Esito<bool> Fine() = 0;
  /// Gives everything up; nothing is left.
  virtual void Annulla() = 0;
};

/// Pages as plain text: fixed lines as they are, a form feed between pages; written beside and
/// renamed at the end.
class UscitaTesto : public Uscita {
 public:
  explicit UscitaTesto(std::filesystem::path file);
  ~UscitaTesto() override;
  [[nodiscard]] bool SoloTesto() const override { return true; }
  void Titolo(const std::string& titolo) override;
  bool Aggiungi(Pagina pagina) override;
  Esito<bool> Fine() override;
  void Annulla() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

/// Pages kept in memory, for tests and for measures.
class UscitaMemoria : public Uscita {
 public:
  explicit UscitaMemoria(bool soloTesto) : soloTesto_(soloTesto) {}
  [[nodiscard]] bool SoloTesto() const override { return soloTesto_; }
  void Titolo(const std::string& titolo) override { titolo_ = titolo; }
  bool Aggiungi(Pagina pagina) override {
    pagine_.push_back(std::move(pagina));
    return true;
  }
  Esito<bool> Fine() override {
    for (Pagina& pagina : pagine_) RisolviPagineTotali(pagina, static_cast<int>(pagine_.size()));
    return true;
  }
  void Annulla() override { pagine_.clear(); }
  [[nodiscard]] const std::vector<Pagina>& Pagine() const { return pagine_; }
  [[nodiscard]] const std::string& TitoloDato() const { return titolo_; }

 private:
  bool soloTesto_;
  std::string titolo_;
  std::vector<Pagina> pagine_;
};

/// Makes the output of a choice; nothing for one that this build can't make. Screens implement it
/// with PDF, printer and preview; tests with text and memory.
class FabbricaUscite {
 public:
  virtual ~FabbricaUscite() = default;
  virtual std::unique_ptr<Uscita> Crea(const SceltaUscita& scelta, const std::string& rapporto) = 0;
};

}  // namespace fenalto::reports
