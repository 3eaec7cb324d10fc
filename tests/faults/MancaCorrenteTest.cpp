// The power goes at any moment of a confirmation: what was told as confirmed is there afterwards,
// whole in both databases, and nothing is half there.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <random>

#include "core/store/ErroreArchivio.h"
#include "faults/FileDiProva.h"
#include "faults/Registrazioni.h"

namespace fenalto::prova {
namespace {

/// What came of one power cut.
struct Esame {
  int confermate = 0;
  int riaccensioni = 0;
  std::string guasti;  ///< empty when nothing was lost
};

class MancaCorrenteTest : public ::testing::Test {
 protected:
  void SetUp() override {
    percorsi = CreaDitta(cartella.Percorso());
    opzioni = OpzioniDiProva();
    opzioni.vfs = FileDiProva::Nome();
    seme = Seme();
  }
  void TearDown() override { FileDiProva::Azzera(); }

  /// Registers until the power goes, at a moment chosen by `caso`, and looks at what is left. The
  /// power may go again while what was interrupted is being undone.
  Esame Prova(std::mt19937& caso, Bugia bugia) const {
    FileDiProva::Azzera();
    FileDiProva::Menti(bugia);
    for (const auto& file : {percorsi.tessarc, percorsi.scadenzario}) {
      std::ifstream letto(file, std::ios::binary);
      FileDiProva::Metti(file, {std::istreambuf_iterator<char>(letto), {}});
    }
    Esame esame;
    Registrate confermate;
    Registrate tentata;
    {
      auto aperte = BasiDati::Apri(percorsi, opzioni);
      if (!aperte) return {0, 0, aperte.Errore().messaggio};
      BasiDati& basi = *aperte.Valore();
      FileDiProva::TagliaAlla(1 + static_cast<std::int64_t>(caso() % 500));
      while (!FileDiProva::Spento()) {
        const int numero = Scegli(caso, confermate);
        const int versione = confermate.contains(numero) ? confermate[numero] + 1 : 1;
        tentata = {{numero, versione}};
        try {
          Registra(basi, numero, versione);
          confermate[numero] = versione;
          ++esame.confermate;
        } catch (const ErroreArchivio& errore) {
          if (!FileDiProva::Spento()) return {0, 0, errore.what()};
        }
      }
    }
    for (bool ancora = true; ancora;) {
      FileDiProva::Riaccendi(caso);
      ++esame.riaccensioni;
      if (esame.riaccensioni < 4 && caso() % 2 == 0) {
        FileDiProva::TagliaAlla(1 + static_cast<std::int64_t>(caso() % 12));
      }
      ancora = Riapre(confermate, tentata, esame.guasti);
    }
    return esame;
  }

 private:
  /// A new registration, one that is there already, or the row on its own.
  static int Scegli(std::mt19937& caso, const Registrate& confermate) {
    const int ultima = confermate.empty() ? 0 : confermate.rbegin()->first;
    switch (caso() % 4) {
      case 0:
        return kRigaSola;
      case 1:
        return ultima == 0 ? 1 : 1 + static_cast<int>(caso() % static_cast<unsigned>(ultima));
      default:
        return ultima + 1;
    }
  }

  /// Opens and compares; true when the power went again meanwhile.
  bool Riapre(const Registrate& confermate, const Registrate& tentata, std::string& guasti) const {
    auto aperte = BasiDati::Apri(percorsi, opzioni);
    if (FileDiProva::Spento()) return true;
    FileDiProva::TagliaAlla(0);
    if (!aperte) {
      guasti += aperte.Errore().messaggio;
      return false;
    }
    try {
      Registrate trovate = Leggi(*aperte.Valore(), guasti);
      ControllaFile(percorsi, opzioni.vfs, guasti);
      // The one under way may be there or not, if it is whole.
      const auto& [numero, versione] = *tentata.begin();
      Registrate attese = confermate;
      if (trovate.contains(numero) && trovate[numero] == versione) attese[numero] = versione;
      if (trovate != attese) guasti += "what was confirmed isn't what is there\n";
      // And the books can be worked on.
      Registra(*aperte.Valore(), 999, 1);
    } catch (const std::exception& errore) {
      guasti += errore.what();
    }
    return false;
  }

 protected:
  CartellaDiProva cartella;
  PercorsiArchivi percorsi;
  OpzioniApertura opzioni;
  long seme = 0;
};

TEST_F(MancaCorrenteTest, NothingConfirmedIsLostAndNothingIsHalf) {
  const int tagli = Lungo() ? 1'000 : 60;
  int confermate = 0;
  int riaccensioni = 0;
  for (int i = 0; i < tagli; ++i) {
    std::mt19937 caso(static_cast<unsigned>(seme + i));
    const Esame esame = Prova(caso, Bugia::Nessuna);
    ASSERT_EQ(esame.guasti, "") << "cut " << i << ": FENALTO_SEME=" << seme + i
                                << " begins with it";
    confermate += esame.confermate;
    riaccensioni += esame.riaccensioni;
  }
  // Otherwise the cuts would all have come before or after what they are to interrupt.
  EXPECT_GT(confermate, tagli);
  EXPECT_GT(riaccensioni, tagli);
  std::printf("%d cuts, %d in the middle of undoing, %d confirmations before them\n", tagli,
              riaccensioni - tagli, confermate);
}

TEST_F(MancaCorrenteTest, ADiskThatLiesIsFoundOut) {
  constexpr int kTagli = 60;
  for (const Bugia bugia : {Bugia::Tutto, Bugia::Giornali}) {
    int guasti = 0;
    for (int i = 0; i < kTagli; ++i) {
      std::mt19937 caso(static_cast<unsigned>(seme + i));
      if (!Prova(caso, bugia).guasti.empty()) ++guasti;
    }
    EXPECT_GT(guasti, 0);
    std::printf("a disk that lies about %s: %d of %d cuts lost something\n",
                bugia == Bugia::Tutto ? "everything" : "journals", guasti, kTagli);
  }
}

}  // namespace
}  // namespace fenalto::prova
