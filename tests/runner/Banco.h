// A bench for commands: the program on a fresh folder, and a window of hand-made controls in front
// of it.
#pragma once

#include <gtest/gtest.h>

#include <QWidget>
#include <memory>
#include <string>

#include "runner/Cartelle.h"
#include "runner/Contesto.h"

namespace fenalto::copione {

class Banco : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Shows the window in front of the others under the name `Prova`.
  void Mostra();
  /// Runs the lines in order. Why the first one that failed did, after its number ("2: ..."); empty
  /// when all held.
  std::string Corri(const std::string& testo);

  QWidget* finestra = nullptr;  ///< to be filled before Mostra
  std::unique_ptr<CartellaProvvisoria> cartella;
  std::unique_ptr<Programma> programma;
  std::unique_ptr<Scena> scena;
  std::unique_ptr<Contesto> contesto;
};

}  // namespace fenalto::copione
