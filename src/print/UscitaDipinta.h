// What PDF and printer have in common: pages painted one by one on a paged device.
//
// A page is painted as soon as it comes. Only when a text asks for the number of pages do the pages
// from there on wait in a temporary file until the last one is there; memory doesn't grow with the
// pages either way.
#pragma once

#include <QPainter>
#include <functional>
#include <memory>
#include <optional>

#include "core/reports/Uscita.h"
#include "print/DepositoPagine.h"
#include "print/Pittore.h"

class QPagedPaintDevice;

namespace fenalto::print {

/// Told the pages done and the pages in all (0 while unknown); false gives the output up.
using AvanzaPagine = std::function<bool(int fatte, int totale)>;

class UscitaDipinta : public reports::Uscita {
 public:
  explicit UscitaDipinta(AvanzaPagine avanza) : avanza_(std::move(avanza)) {}
  [[nodiscard]] bool SoloTesto() const override { return false; }
  void Titolo(const std::string& titolo) override { titolo_ = titolo; }
  bool Aggiungi(reports::Pagina pagina) override;
  /// False, without an error, when the user gave it up.
  Esito<bool> Fine() override;
  void Annulla() override;
  /// The number of pages when it is known beforehand: none has to wait.
  void Totale(int pagine) { totale_ = pagine; }

 protected:
  /// Opens the device when the first page is there; false when the user gave it up.
  virtual Esito<bool> Apri() = 0;
  [[nodiscard]] virtual QPagedPaintDevice& Foglio() = 0;
  /// What has gone wrong with the device so far, empty when nothing.
  [[nodiscard]] virtual std::string Guasto() = 0;
  /// Brings what was painted to its end, once the painter has ended.
  virtual Esito<bool> Chiudi() = 0;
  /// Leaves nothing of it.
  virtual void Abbandona() = 0;
  /// Whether the page of that place (from 1) was asked for.
  [[nodiscard]] virtual bool Richiesta(int) const { return true; }
  [[nodiscard]] const std::string& TitoloDato() const { return titolo_; }

 private:
  bool Dipingi(const reports::Pagina& pagina);
  bool DipingiAttese();
  bool Ferma();
  bool Fallita(const std::string& messaggio);
  [[nodiscard]] bool Viva() const { return !annullata_ && !errore_; }
  AvanzaPagine avanza_;
  std::string titolo_;
  Pittore pittore_;
  std::unique_ptr<QPainter> tela_;
  std::unique_ptr<DepositoPagine> attese_;
  std::optional<Errore> errore_;
  bool aperta_ = false;
  bool annullata_ = false;
  int totale_ = 0;
  int arrivate_ = 0;
  int passate_ = 0;
};

}  // namespace fenalto::print
