// Ports for tests: dialogs that answer as told beforehand, a clock that stands where it is put, and
// numbers that repeat. A question that nobody foresaw, and an answer that nobody asked for, fail
// the test.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/session/Porte.h"

namespace fenalto {

class DialoghiFinti : public Dialoghi {
 public:
  DialoghiFinti() = default;
  DialoghiFinti(const DialoghiFinti&) = delete;
  DialoghiFinti& operator=(const DialoghiFinti&) = delete;
  ~DialoghiFinti() override {
    for (const auto& [testo, risposta] : risposte_) ADD_FAILURE() << "mai chiesto: " << testo;
    EXPECT_TRUE(testi_.empty()) << "un testo preparato non è stato chiesto";
    EXPECT_TRUE(ditte_.empty()) << "una scelta di ditta preparata non è stata chiesta";
    EXPECT_TRUE(accessi_.empty()) << "un accesso preparato non è stato chiesto";
    EXPECT_TRUE(file_.empty()) << "una scelta di file preparata non è stata chiesta";
    EXPECT_TRUE(uscite_.empty()) << "una scelta di uscita preparata non è stata chiesta";
  }

  // What will be answered, in the order of the questions of each kind. `parte` is a piece of the
  // question's text.
  void Rispondera(const std::string& parte, Risposta risposta) {
    risposte_.emplace_back(parte, risposta);
  }
  void Scrivera(std::optional<std::string> testo) { testi_.push_back(std::move(testo)); }
  void ScegliaDitta(std::optional<SceltaDitta> scelta) { ditte_.push_back(std::move(scelta)); }
  void Acceda(std::optional<Credenziali> credenziali) {
    accessi_.push_back(std::move(credenziali));
  }
  void ScegliaFile(std::optional<std::filesystem::path> file) { file_.push_back(std::move(file)); }
  void ScegliaUscita(std::optional<SceltaUscita> uscita) { uscite_.push_back(std::move(uscita)); }

  // What was told and asked.
  std::vector<std::string> messaggi;
  std::vector<std::string> domande;
  std::vector<std::string> avvisiAccesso;
  std::vector<std::string> aperti;  ///< by ApriEsterno
  std::vector<DittaTrovata> ditteOfferte;
  /// Called while the choice of company is open, to look at the years offered.
  std::function<void(const std::function<std::vector<int>(const std::string&, std::string&)>&)>
      suScegliDitta;
  /// Steps of a long work after which the user cancels it.
  std::int64_t annullaDopo = std::numeric_limits<std::int64_t>::max();

  [[nodiscard]] std::string UltimoMessaggio() const {
    return messaggi.empty() ? std::string() : messaggi.back();
  }
  [[nodiscard]] bool HaDetto(const std::string& parte) const {
    return std::any_of(messaggi.begin(), messaggi.end(), [&](const std::string& messaggio) {
      return messaggio.find(parte) != std::string::npos;
    });
  }

  void Messaggio(const std::string& testo, Icona /*icona*/ = Icona::Informazione) override {
    messaggi.push_back(testo);
  }
  Risposta Domanda(const std::string& testo, Bottoni /*bottoni*/, Risposta predefinita,
                   const std::string& /*titolo*/ = "", Icona /*icona*/ = Icona::Domanda) override {
    domande.push_back(testo);
    if (risposte_.empty()) {
      ADD_FAILURE() << "domanda non prevista: " << testo;
      return predefinita;
    }
    const auto [parte, risposta] = risposte_.front();
    risposte_.pop_front();
    EXPECT_NE(testo.find(parte), std::string::npos)
        << "prevista «" << parte << "», chiesta «" << testo << "»";
    return risposta;
  }
  std::optional<std::string> Chiedi(const std::string& testo,
                                    const std::string& /*iniziale*/ = "") override {
    return Prossima(testi_, testo);
  }
  std::optional<SceltaUscita> ScegliUscita(const std::string& rapporto, bool /*esporta*/) override {
    return Prossima(uscite_, rapporto);
  }
  std::optional<std::filesystem::path> ScegliFile(const std::string& titolo, ModoFile /*modo*/,
                                                  const std::string& /*filtro*/) override {
    return Prossima(file_, titolo);
  }
  std::optional<SceltaDitta> ScegliDitta(
      const std::vector<DittaTrovata>& ditte,
      const std::function<std::vector<int>(const std::string&, std::string&)>& anniDi) override {
    ditteOfferte = ditte;
    if (suScegliDitta) suScegliDitta(anniDi);
    return Prossima(ditte_, "scelta della ditta");
  }
  std::optional<Credenziali> ChiediAccesso(const std::string& avviso) override {
    avvisiAccesso.push_back(avviso);
    return Prossima(accessi_, "accesso");
  }
  std::unique_ptr<Avanzamento> Avvia(const std::string& /*testo*/,
                                     std::int64_t /*totale*/) override {
    return std::make_unique<Finto>(annullaDopo);
  }
  bool ApriEsterno(const std::string& fileOIndirizzo) override {
    aperti.push_back(fileOIndirizzo);
    return true;
  }

 private:
  class Finto : public Avanzamento {
   public:
    explicit Finto(std::int64_t annullaDopo) : annullaDopo_(annullaDopo) {}
    bool Avanza(std::int64_t fatto) override { return fatto < annullaDopo_; }

   private:
    std::int64_t annullaDopo_;
  };

  template <typename T>
  std::optional<T> Prossima(std::deque<std::optional<T>>& coda, const std::string& domanda) {
    domande.push_back(domanda);
    if (coda.empty()) {
      ADD_FAILURE() << "domanda non prevista: " << domanda;
      return std::nullopt;
    }
    std::optional<T> prima = std::move(coda.front());
    coda.pop_front();
    return prima;
  }

  std::deque<std::pair<std::string, Risposta>> risposte_;
  std::deque<std::optional<std::string>> testi_;
  std::deque<std::optional<SceltaDitta>> ditte_;
  std::deque<std::optional<Credenziali>> accessi_;
  std::deque<std::optional<std::filesystem::path>> file_;
  std::deque<std::optional<SceltaUscita>> uscite_;
};

/// A clock that stands still.
class OrologioFinto : public Orologio {
 public:
  OrologioFinto() = default;
  explicit OrologioFinto(Data o) : oggi(o) {}
  Data oggi = Data::DaGma(24, 11, 2026).value();
  std::string ora = "10:00";
  [[nodiscard]] Data Oggi() const override { return oggi; }
  [[nodiscard]] std::string Ora() const override { return ora; }
};

/// The same numbers at each run.
class CasoFinto : public Caso {
 public:
  std::uint64_t prossimo = 1;
  std::uint64_t Numero() override { return prossimo++; }
};

}  // namespace fenalto
