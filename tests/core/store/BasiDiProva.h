// A small company in a folder of its own, with a schema of its own, for tests of the store.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "core/store/BasiDati.h"

namespace fenalto::prova {

class BasiDiProva : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Writes a file of the schema, for instance "tessarc/002_colonna.sql".
  void Schema(const std::string& nome, const std::string& sql) const;
  /// Both databases at the schema's newest step.
  void Crea() const;
  /// Opens them; fails the test when it can't.
  std::unique_ptr<BasiDati> Apri() const;
  /// The message with which opening fails; empty when it doesn't.
  std::string ErroreApertura() const;
  /// Adds `quante` causals to tessarc with codes from 1000 on.
  static void Causali(BasiDati& basi, int quante);
  /// Runs engine SQL on a database of its own connection, behind the store's back.
  static void Motore(const std::filesystem::path& file, const std::string& sql);

  std::filesystem::path cartella;
  PercorsiArchivi percorsi;
  OpzioniApertura opzioni;
};

/// The same with both databases made and open.
class BasiAperte : public BasiDiProva {
 protected:
  void SetUp() override {
    BasiDiProva::SetUp();
    Crea();
    basi = Apri();
    ASSERT_NE(basi, nullptr);
  }
  void TearDown() override {
    basi.reset();
    BasiDiProva::TearDown();
  }
  Archivio& A() { return basi->Tessarc(); }

  std::unique_ptr<BasiDati> basi;
};

/// Cause of the error that `azione` throws; fails the test when it throws none.
template <typename Azione>
ErroreArchivio::Causa CausaDi(const Azione& azione, std::string* messaggio = nullptr) {
  try {
    azione();
  } catch (const ErroreArchivio& errore) {
    if (messaggio != nullptr) *messaggio = errore.what();
    return errore.PerQuale();
  }
  ADD_FAILURE() << "nessun errore";
  return ErroreArchivio::Causa::Altro;
}

}  // namespace fenalto::prova
