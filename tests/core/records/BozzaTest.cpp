// Drafts: what a killed program leaves is offered again as it was typed, whatever became of the
// file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "core/records/Bozza.h"
#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"

namespace fenalto::records {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct RigaProva {
  std::int64_t num = 0;
  std::int64_t posi = 0;
  std::string testo = {};
  Importo importo = {};
  Data giorno = {};
  bool chiusa = false;
  bool operator==(const RigaProva&) const = default;
};
/// Without a number: known by its place.
struct RigaSenza {
  std::int64_t posi = 0;
  std::string testo;
};

constexpr CampoRiga<RigaProva> kCampiProva[] = {
    Campo<&RigaProva::posi>("Posi"), Campo<&RigaProva::testo>("Testo"),
    Campo<&RigaProva::importo>("Importo"), Campo<&RigaProva::giorno>("Giorno"),
    Campo<&RigaProva::chiusa>("Chiusa")};
constexpr CampoRiga<RigaSenza> kCampiSenza[] = {Campo<&RigaSenza::posi>("Posi"),
                                                Campo<&RigaSenza::testo>("Testo")};

template <class R>
std::vector<std::string> Testi(const Righe<R>& righe) {
  std::vector<std::string> testi;
  for (const R& r : righe.Tutte()) testi.push_back(std::to_string(r.posi) + r.testo);
  return testi;
}

/// A use case with nothing of its own. Destroyed without Chiudi, it was killed.
template <class R>
struct Caso {
  Caso(Ambiente& a, std::span<const CampoRiga<R>> campi, std::vector<R> lette = {})
      : ambiente(a), righe(campi), bozza(a, "Prova", campi, {"Probabile"}), memorizzate(lette) {
    testa.Aggiungi("Dt", Tipo::Data);
    testa.Aggiungi("Nome", Tipo::Testo);
    testa.Aggiungi("Sconto", Tipo::Importo);
    testa.Aggiungi("Probabile", Tipo::Intero);
  }
  void Nuovo() {
    testa.Svuota();
    testa.Scrivi("Dt", ambiente.Ora().Oggi());
    testa.Scrivi("Probabile", 12);
    righe.Carica({});
    bozza.Inizia(ambiente.Anno(), "", testa, righe);
  }
  void Apri() {
    testa.Svuota();
    testa.Scrivi("Nome", "com'era");
    testa.Consolida();
    righe.Carica(memorizzate);
    bozza.Inizia(ambiente.Anno(), "7", testa, righe);
  }
  void Metti(R riga) {
    righe.Sostituisci(righe.Con(std::move(riga)));
    Segna();
  }
  void Segna() { bozza.Segna(testa, righe); }
  bool Riprendi() {
    auto lasciata = bozza.Offri({"un documento non confermato", "lo"});
    if (!lasciata) return false;
    if (lasciata->record.empty()) {
      Nuovo();
    } else {
      Apri();
    }
    nota = lasciata->Nota("opzione");
    if (!bozza.Concorda(*lasciata)) return bozza.NonRipresa("è cambiato");
    bozza.RiempiTesta(*lasciata, testa);
    righe.Sostituisci(bozza.RigheDi(*lasciata, righe));
    bozza.RiempiRiga(*lasciata, righe);
    return bozza.Ripresa(testa, righe);
  }

  Ambiente& ambiente;
  Scheda testa;
  Righe<R> righe;
  Bozza<R> bozza;
  std::vector<R> memorizzate;
  std::string nota;
};

struct Nuova : Caso<RigaProva> {
  explicit Nuova(Ambiente& a) : Caso(a, kCampiProva) { Nuovo(); }
};

class BozzaTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    cartella_ = std::make_unique<CartellaProva>();
    CreaDittaProva(OpzioniProva(cartella_->Percorso()), "Rossi");
  }
  static void TearDownTestSuite() { cartella_.reset(); }
  BozzaTest() : ambiente(OpzioniProva(cartella_->Percorso()), dialoghi, orologio, caso) {
    const auto aperta = ambiente.ApriDitta("Rossi", 2026);
    if (!aperta) throw std::runtime_error(aperta.Errore().messaggio);
    orologio.oggi = *Data::DaGma(15, 3, 2026);
    fs::remove_all(Cartella());
  }
  [[nodiscard]] fs::path Cartella() const { return ambiente.CartellaDitta() / "Bozze"; }
  [[nodiscard]] fs::path Primo() const { return Cartella() / "Prova-prova--1.txt"; }
  [[nodiscard]] std::vector<fs::path> Bozze() const {
    std::vector<fs::path> trovate;
    std::error_code errore;
    for (const auto& voce : fs::directory_iterator(Cartella(), errore)) {
      if (voce.path().extension() == ".txt") trovate.push_back(voce.path());
    }
    return trovate;
  }
  void Accetta() { dialoghi.Rispondera("non confermato del 15/03/2026", Risposta::Si); }

  DialoghiFinti dialoghi;
  OrologioFinto orologio;
  CasoFinto caso;
  Ambiente ambiente;
  static std::unique_ptr<CartellaProva> cartella_;
};

std::unique_ptr<CartellaProva> BozzaTest::cartella_;

/// A new record with something of everything.
void Digita(Caso<RigaProva>& uno) {
  uno.testa.Scrivi("Nome", "Rossi\tMario\nbis \\ ì");
  uno.testa.Scrivi("Sconto", "-12.3456");
  uno.bozza.Nota("opzione", true);
  uno.Segna();
  for (int i = 1; i <= 3; ++i) {
    RigaProva riga;
    riga.posi = 100 * i;
    riga.testo = "riga " + std::to_string(i);
    riga.importo = Importo::DaUnita(i);
    riga.giorno = *Data::DaGma(i, 2, 2026);
    riga.chiusa = i == 2;
    uno.righe.Nuova(riga);
    uno.Metti(riga);
  }
  uno.righe.Apri(0);
  uno.righe.Sostituisci(uno.righe.Senza());
  uno.Segna();
  uno.righe.Apri(1);
  uno.righe.Riga().Scrivi("Testo", "in mano");
  uno.Segna();
}

TEST_F(BozzaTest, UnaNuovaTornaComEraAncheDueVolte) {
  {
    Nuova prima(ambiente);
    EXPECT_THAT(Bozze(), IsEmpty());
    Digita(prima);
  }
  orologio.oggi = *Data::DaGma(16, 3, 2026);
  for (int volta = 0; volta < 2; ++volta) {
    Caso<RigaProva> dopo(ambiente, kCampiProva);
    const std::string giorno = volta == 0 ? "15" : "16";
    dialoghi.Rispondera(
        "C'è un documento non confermato del " + giorno + "/03/2026 10:00 : lo riprendo?",
        Risposta::Si);
    ASSERT_TRUE(dopo.Riprendi());
    EXPECT_EQ(dopo.testa.Testo("Nome"), "Rossi\tMario\nbis \\ ì");
    EXPECT_EQ(dopo.testa.Testo("Sconto"), "-12.3456");
    EXPECT_EQ(dopo.testa.Testo("Dt"), "2026-03-15") << "not that of a new one of today";
    EXPECT_EQ(dopo.nota, "True");
    EXPECT_THAT(Testi(dopo.righe), ElementsAre("200riga 2", "300riga 3"));
    EXPECT_TRUE(dopo.righe.Tutte()[0].chiusa);
    EXPECT_EQ(dopo.righe.Tutte()[1].giorno.Testo(), "03/02/2026");
    ASSERT_NE(dopo.righe.Aperta(), nullptr);
    EXPECT_EQ(dopo.righe.Aperta()->posi, 300);
    EXPECT_EQ(dopo.righe.Riga().Testo("Testo"), "in mano");
    EXPECT_TRUE(dopo.righe.Digitando());
    EXPECT_EQ(Bozze().size(), 1U) << "what was taken up is kept once";
  }
}

TEST_F(BozzaTest, ConfermataAbbandonataORimessaComEraNonRestaNulla) {
  Nuova uno(ambiente);
  uno.testa.Scrivi("Nome", "x");
  uno.Segna();
  EXPECT_EQ(Bozze().size(), 1U);
  uno.testa.Scrivi("Nome", "");
  uno.Segna();
  EXPECT_THAT(Bozze(), IsEmpty());
  Digita(uno);
  uno.bozza.Fine();
  EXPECT_THAT(Bozze(), IsEmpty());
  EXPECT_FALSE(Caso<RigaProva>(ambiente, kCampiProva).Riprendi());
}

TEST_F(BozzaTest, DiUnaMemorizzataSiTieneSoloCioCheCambia) {
  std::vector<RigaProva> lette;
  for (int i = 1; i <= 5'000; ++i) {
    lette.push_back({.posi = i, .testo = "r", .importo = Importo::DaUnita(i)});
  }
  {
    Caso<RigaProva> uno(ambiente, kCampiProva, lette);
    uno.Apri();
    uno.righe.Apri(9);
    auto riga = uno.righe.Digitata();
    riga.testo = "cambiata";
    uno.Metti(riga);
    uno.righe.Apri(0);
    uno.righe.Sostituisci(uno.righe.Senza());
    RigaProva nuova;
    nuova.posi = 9'000;
    nuova.testo = "nuova";
    uno.righe.Nuova(nuova);
    uno.Metti(nuova);
    EXPECT_LT(fs::file_size(Primo()), 2'000U);
  }
  {
    Caso<RigaProva> dopo(ambiente, kCampiProva, lette);
    dialoghi.Rispondera("(correzione di quanto già registrato) : lo riprendo?", Risposta::Si);
    ASSERT_TRUE(dopo.Riprendi());
    const auto& righe = dopo.righe.Tutte();
    ASSERT_EQ(righe.size(), 5'000U);
    EXPECT_EQ(righe[0].posi, 2);
    EXPECT_EQ(righe[8].testo, "cambiata");
    EXPECT_EQ(righe[8].importo, Importo::DaUnita(10));
    EXPECT_EQ(righe.back().testo, "nuova");
    EXPECT_TRUE(dopo.righe.Modificate());
  }
  lette[4'000].testo = "da un'altra stazione";
  Caso<RigaProva> cambiata(ambiente, kCampiProva, lette);
  Accetta();
  EXPECT_FALSE(cambiata.Riprendi());
  EXPECT_THAT(dialoghi.messaggi, ElementsAre("è cambiato"));
  EXPECT_THAT(Bozze(), IsEmpty());
}

TEST_F(BozzaTest, RigheSenzaNumeroSiConosconoDalPosto) {
  {
    Caso<RigaSenza> uno(ambiente, kCampiSenza, {{1, "a"}, {2, "b"}, {3, "c"}});
    uno.Apri();
    uno.righe.Apri(0);
    uno.righe.Sostituisci(uno.righe.Senza());
    uno.Metti({.posi = 9, .testo = "z"});
    uno.righe.Apri(1);
    uno.righe.Sostituisci(uno.righe.Senza());
    uno.Segna();
  }
  Caso<RigaSenza> dopo(ambiente, kCampiSenza, {{1, "a"}, {2, "b"}, {3, "c"}});
  Accetta();
  ASSERT_TRUE(dopo.Riprendi());
  EXPECT_THAT(Testi(dopo.righe), ElementsAre("2b", "9z"));
}

TEST_F(BozzaTest, AChiAppartieneEDiQualeAnno) {
  {
    Nuova uno(ambiente);
    Digita(uno);
  }
  {
    ASSERT_TRUE(ambiente.ScegliAnno(2025));
    Caso<RigaProva> altroAnno(ambiente, kCampiProva);
    EXPECT_FALSE(altroAnno.Riprendi());
    EXPECT_THAT(dialoghi.messaggi, ElementsAre(HasSubstr("nell'anno 2026")));
    altroAnno.Nuovo();
    Digita(altroAnno);
    EXPECT_EQ(Bozze().size(), 2U) << "the other one isn't written over";
    ASSERT_TRUE(ambiente.ScegliAnno(2026));
    altroAnno.bozza.Fine();
  }
  Nuova insieme(ambiente);
  Digita(insieme);
  {
    Caso<RigaProva> altra(ambiente, kCampiProva);
    Accetta();  // the first one; the second is in use in the other window
    EXPECT_TRUE(altra.Riprendi());
    altra.bozza.InConferma(true);
  }
  insieme.bozza.Fine();
  Caso<RigaProva> ultima(ambiente, kCampiProva);
  dialoghi.Rispondera("controllare che non sia già registrato", Risposta::No);
  EXPECT_FALSE(ultima.Riprendi());
  EXPECT_THAT(Bozze(), IsEmpty()) << "given up";
}

TEST_F(BozzaTest, TagliatoOGuastatoInOgniPuntoDaCioCheEIntero) {
  {
    Nuova uno(ambiente);
    Digita(uno);
  }
  const std::string intero = LeggiFile(Primo());
  const VociBozza tutte = LeggiBozza(intero);
  ASSERT_GT(tutte.size(), 8U);
  std::size_t viste = 0;
  for (std::size_t fine = 0; fine <= intero.size(); ++fine) {
    const VociBozza voci = LeggiBozza(std::string_view(intero).substr(0, fine));
    ASSERT_GE(voci.size(), viste) << fine << ": what was whole stays";
    viste = voci.size();
    // Whatever is left, the record opens.
    ScriviFile(Primo(), intero.substr(0, fine));
    Caso<RigaProva> dopo(ambiente, kCampiProva);
    const bool offerta = voci.contains("H");
    if (offerta) Accetta();
    ASSERT_EQ(dopo.Riprendi(), offerta) << fine;
    for (const RigaProva& riga : dopo.righe.Tutte()) {
      ASSERT_EQ(riga.testo, "riga " + std::to_string(riga.posi / 100)) << fine;
    }
    dopo.bozza.Fine();
  }
  for (std::size_t dove = 0; dove < intero.size(); ++dove) {
    std::string guasto = intero;
    guasto[dove] = static_cast<char>(guasto[dove] ^ 0x15);
    for (const auto& [nome, voce] : LeggiBozza(guasto)) {
      const auto vera = tutte.find(nome);
      ASSERT_NE(vera, tutte.end()) << dove << ": made up " << nome;
    }
  }
}

TEST_F(BozzaTest, IlFileNonCresceSenzaFine) {
  Nuova uno(ambiente);
  std::vector<RigaProva> tante;
  for (int i = 1; i <= 5'000; ++i) tante.push_back({.posi = i, .testo = std::string(40, 'r')});
  uno.righe.Sostituisci(tante);
  uno.Segna();
  const auto tutte = fs::file_size(Primo());
  uno.testa.Scrivi("Nome", "un campo");
  uno.Segna();
  EXPECT_LT(fs::file_size(Primo()) - tutte, 100U);
  for (int i = 0; i < 40'000; ++i) {
    uno.testa.Scrivi("Nome", "volta " + std::to_string(i));
    uno.Segna();
  }
  EXPECT_LT(fs::file_size(Primo()), 5 * tutte);
  const VociBozza voci = LeggiBozza(LeggiFile(Primo()));
  EXPECT_EQ(voci.at("T:Nome").front(), "volta 39999");
  EXPECT_EQ(voci.count("R5000"), 1U);
}

}  // namespace
}  // namespace fenalto::records
