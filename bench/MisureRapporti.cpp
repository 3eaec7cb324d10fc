#include "bench/MisureRapporti.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>

#include "bench/GeneraDitta.h"
#include "bench/Nuda.h"
#include "ledger/journal/Giornale.h"
#include "ledger/statements/BilancioVerifica.h"
#include "print/Pittore.h"
#include "print/UscitaAnteprima.h"
#include "print/UscitaPdf.h"
#include "print/VistaPagina.h"

namespace fenalto::banco {
namespace {

constexpr int kVolte = 3;  // of the measures that take seconds
/// Days of the generated company's journal that fill some 500 pages.
constexpr int kGiorniPdf = 30;
constexpr double kPollice = 2540;  // hundredths of a millimetre

/// Hands on an output made beforehand.
class Fabbrica : public reports::FabbricaUscite {
 public:
  explicit Fabbrica(std::function<std::unique_ptr<reports::Uscita>()> crea)
      : crea_(std::move(crea)) {}
  std::unique_ptr<reports::Uscita> Crea(const SceltaUscita&, const std::string&) override {
    return crea_();
  }

 private:
  std::function<std::unique_ptr<reports::Uscita>()> crea_;
};

void Pretendi(bool riuscito, const char* cosa) {
  if (!riuscito) throw std::runtime_error(std::string("non riuscito: ") + cosa);
}

Rapporto MisuraBilancio(Ambiente& ambiente, Nuda& nuda) {
  auto* periodo = nuda.Prepara((std::string(kTutti) + kPeriodo + kGruppi).c_str());
  auto* apertura = nuda.Prepara((std::string(kTutti) + kApertura + kGruppi).c_str());
  Fabbrica fabbrica([] { return std::make_unique<reports::UscitaMemoria>(true); });
  ledger::BilancioVerifica bilancio(ambiente, fabbrica);
  return Misura(
      "bilancio", 1.5,
      [&] {
        ledger::SceltaBilancio scelta = bilancio.Proposta();
        scelta.stampoCliFor = true;
        Pretendi(bilancio.StampaVerifica(scelta), "bilancio di verifica");
      },
      [&] {
        Leggi(periodo);
        Leggi(apertura);
      });
}

void StampaAnno(Ambiente& ambiente, reports::FabbricaUscite& fabbrica, int anno, int giorni = 0) {
  Pretendi(static_cast<bool>(ambiente.ScegliAnno(anno)), "scelta dell'anno");
  ledger::SceltaGiornale scelta;
  scelta.daDt = Data::DaGma(1, 1, anno).value();
  scelta.aaDt = giorni > 0 ? scelta.daDt.PiuGiorni(giorni - 1) : Data::DaGma(31, 12, anno).value();
  Pretendi(ledger::Giornale(ambiente, fabbrica).Stampa(scelta), "giornale");
}

/// The journal's rows of one year (?1), as the engine gives them, one a line.
void ScriviNudo(sqlite3_stmt* righe, int anno, std::FILE* file) {
  const auto testo = [righe](int colonna) {
    return reinterpret_cast<const char*>(sqlite3_column_text(righe, colonna));
  };
  sqlite3_bind_int(righe, 1, anno);
  while (sqlite3_step(righe) == SQLITE_ROW) {
    std::fprintf(file, "%lld %lld %lld %s %s %s %s %lld %lld\n", sqlite3_column_int64(righe, 0),
                 sqlite3_column_int64(righe, 1), sqlite3_column_int64(righe, 2), testo(3), testo(4),
                 testo(5), testo(6), sqlite3_column_int64(righe, 7),
                 sqlite3_column_int64(righe, 8));
  }
  sqlite3_reset(righe);
}

Rapporto MisuraGiornaleTesto(Ambiente& ambiente, Nuda& nuda, const std::filesystem::path& file) {
  auto* righe = nuda.Prepara(
      "SELECT Articoli.Dt, Articoli.NumDoc, Articoli.NProt, Causale, Descrizione, Movimenti.CFP, "
      "Movimenti.Conto, ImpoDare, ImpoAvere FROM Articoli INNER JOIN Movimenti ON "
      "Articoli.Anno=Movimenti.Anno AND Articoli.NumDoc=Movimenti.NumDoc WHERE Articoli.Anno=?1 "
      "ORDER BY Articoli.Dt, Articoli.NumDoc, Movimenti.Posi");
  Fabbrica fabbrica([&] { return std::make_unique<reports::UscitaTesto>(file); });
  return Misura(
      "giornale-testo", 3,
      [&] {
        for (int i = 0; i < kAnni; ++i) StampaAnno(ambiente, fabbrica, kPrimoAnno + i);
      },
      [&] {
        std::FILE* nudo = std::fopen(file.c_str(), "w");
        Pretendi(nudo != nullptr, "file di testo");
        for (int i = 0; i < kAnni; ++i) ScriviNudo(righe, kPrimoAnno + i, nudo);
        std::fclose(nudo);
      },
      kVolte);
}

/// A line of the journal and where it begins on the page.
struct RigaNuda {
  double x = 0;
  double y = 0;
  bool grassetto = false;
  std::string testo;
};
using PagineNude = std::vector<std::vector<RigaNuda>>;

/// The lines without the blanks around them, which leave no mark.
PagineNude Spoglia(const std::vector<reports::Pagina>& pagine) {
  PagineNude nude;
  for (const reports::Pagina& pagina : pagine) {
    auto& righe = nude.emplace_back();
    for (const reports::Elemento& elemento : pagina.elementi) {
      const auto& riga = std::get<reports::RigaFissa>(elemento);
      const auto primo = riga.testo.find_first_not_of(' ');
      if (primo == std::string::npos) continue;
      const auto ultimo = riga.testo.find_last_not_of(' ');
      righe.push_back({riga.x + static_cast<double>(primo) * kPollice / riga.passo,
                       static_cast<double>(riga.y), riga.grassetto,
                       riga.testo.substr(primo, ultimo - primo + 1)});
    }
  }
  return nude;
}

/// As many characters an inch as `passo`, by scaling what the face has.
class FonteNuda {
 public:
  FonteNuda(int passo, bool grassetto) : fonte_(QStringLiteral("Liberation Mono")) {
    constexpr double kLarghezza = 0.6;  // of a character, in parts of its size
    fonte_.setPixelSize(static_cast<int>(kPollice / passo / kLarghezza + 0.5));
    fonte_.setBold(grassetto);
    fonte_.setHintingPreference(QFont::PreferNoHinting);
    const QFontMetricsF misure(fonte_);
    scala_ = kPollice / passo / misure.horizontalAdvance(QLatin1Char('W'));
    altezza_ = misure.ascent();
  }
  void Dipingi(QPainter& tela, const RigaNuda& riga) const {
    tela.setFont(fonte_);
    tela.drawText(QPointF(riga.x / scala_, riga.y + altezza_), QString::fromStdString(riga.testo));
  }
  [[nodiscard]] double Scala() const { return scala_; }

 private:
  QFont fonte_;
  double scala_ = 1;
  double altezza_ = 0;
};

void DipingiNude(const PagineNude& pagine, const reports::FormatoPagina& formato, int passo,
                 const std::filesystem::path& percorso) {
  QFile file(QString::fromStdString(percorso.string()));
  Pretendi(file.open(QIODevice::WriteOnly), "file PDF");
  QPdfWriter scrittore(&file);
  scrittore.setResolution(static_cast<int>(kPollice));
  scrittore.setPageLayout(print::Disposizione(formato));
  const FonteNuda normale(passo, false);
  const FonteNuda grassetto(passo, true);
  QPainter tela(&scrittore);
  tela.scale(normale.Scala(), 1);
  bool prima = true;
  for (const auto& pagina : pagine) {
    if (!prima) scrittore.newPage();
    prima = false;
    for (const RigaNuda& riga : pagina) (riga.grassetto ? grassetto : normale).Dipingi(tela, riga);
  }
  tela.end();
}

/// Takes the pages and gives them to whom it was made for.
class UscitaRaccolta : public reports::UscitaMemoria {
 public:
  explicit UscitaRaccolta(std::vector<reports::Pagina>& pagine)
      : reports::UscitaMemoria(false), pagine_(pagine) {}
  Esito<bool> Fine() override {
    auto esito = reports::UscitaMemoria::Fine();
    pagine_ = Pagine();
    return esito;
  }

 private:
  std::vector<reports::Pagina>& pagine_;
};

Rapporto MisuraGiornalePdf(Ambiente& ambiente, const std::filesystem::path& file) {
  const int anno = kPrimoAnno + kAnni - 1;
  std::vector<reports::Pagina> pagine;
  Fabbrica raccolta([&] { return std::make_unique<UscitaRaccolta>(pagine); });
  StampaAnno(ambiente, raccolta, anno, kGiorniPdf);
  std::printf("# giornale-pdf: %zu pagine\n", pagine.size());
  const reports::FormatoPagina formato = pagine.front().formato;
  const int passo = std::get<reports::RigaFissa>(pagine.front().elementi.front()).passo;
  const PagineNude nude = Spoglia(pagine);
  pagine = {};
  Fabbrica fabbrica([&] { return std::make_unique<print::UscitaPdf>(file); });
  return Misura(
      "giornale-pdf", 1.3, [&] { StampaAnno(ambiente, fabbrica, anno, kGiorniPdf); },
      [&] { DipingiNude(nude, formato, passo, file); });
}

/// A preview that tells when its first page was on the screen, and closes its window at the end.
class UscitaCronometro : public print::UscitaAnteprima {
 public:
  UscitaCronometro(Dialoghi& dialoghi, std::function<void()> suPrima)
      : print::UscitaAnteprima("giornale", dialoghi, nullptr, {}), suPrima_(std::move(suPrima)) {}
  bool Aggiungi(reports::Pagina pagina) override {
    const bool preso = print::UscitaAnteprima::Aggiungi(std::move(pagina));
    if (suPrima_) {
      Pretendi(Finestra()->Vista().Dipinta(), "prima pagina dell'anteprima");
      suPrima_();
      suPrima_ = nullptr;
    }
    return preso;
  }
  Esito<bool> Fine() override {
    auto esito = print::UscitaAnteprima::Fine();
    if (Finestra() != nullptr) Finestra()->close();
    return esito;
  }

 private:
  std::function<void()> suPrima_;
};

Rapporto MisuraAnteprima(Ambiente& ambiente, DialoghiMuti& dialoghi) {
  using Orologio = std::chrono::steady_clock;
  std::vector<double> prime;
  std::vector<double> intere;
  for (int i = 0; i <= kVolte; ++i) {
    const auto inizio = Orologio::now();
    const auto trascorsi = [inizio] {
      return std::chrono::duration<double>(Orologio::now() - inizio).count();
    };
    double prima = 0;
    Fabbrica fabbrica(
        [&] { return std::make_unique<UscitaCronometro>(dialoghi, [&] { prima = trascorsi(); }); });
    StampaAnno(ambiente, fabbrica, kPrimoAnno + kAnni - 1);
    const double intera = trascorsi();
    QApplication::processEvents();
    if (i == 0) continue;  // fonts and styles are loaded once
    prime.push_back(prima);
    intere.push_back(intera);
  }
  std::printf("# anteprima: prima pagina %.0f ms, tutte %.0f ms\n", Mediana(prime) * 1000,
              Mediana(intere) * 1000);
  return {"anteprima", Mediana(prime) / Mediana(intere), 0.05};
}

double MegabyteGiornali(const OpzioniAmbiente& opzioni, const std::string& ditta) {
  const auto file = opzioni.cartellaProgramma / ("giornale-" + ditta + ".pdf");
  SecondiDiProcesso({"/proc/self/exe", "--giornale-pdf", ditta, file.string()});
  double megabyte = 0;
  std::ifstream detto(file.string() + ".megabyte");
  Pretendi(static_cast<bool>(detto >> megabyte), "memoria del giornale");
  std::filesystem::remove(file);
  std::filesystem::remove(file.string() + ".megabyte");
  return megabyte;
}

}  // namespace

std::vector<Rapporto> MisureRapporti(Ambiente& ambiente, DialoghiMuti& dialoghi,
                                     const std::filesystem::path& nuda, const Nomi& nomi) {
  const int anno = ambiente.Anno();
  Nuda bara(nuda);
  // Which output it is doesn't matter: the factories have theirs.
  dialoghi.uscita = SceltaUscita{Destinazione::Testo, {}};
  const auto testo = nuda.parent_path() / "giornale.txt";
  const auto pdf = nuda.parent_path() / "giornale.pdf";
  std::vector<Rapporto> rapporti;
  if (Chiesto(nomi, "bilancio")) rapporti.push_back(MisuraBilancio(ambiente, bara));
  if (Chiesto(nomi, "giornale-testo")) {
    rapporti.push_back(MisuraGiornaleTesto(ambiente, bara, testo));
  }
  if (Chiesto(nomi, "giornale-pdf")) rapporti.push_back(MisuraGiornalePdf(ambiente, pdf));
  if (Chiesto(nomi, "anteprima")) rapporti.push_back(MisuraAnteprima(ambiente, dialoghi));
  std::filesystem::remove(testo);
  std::filesystem::remove(pdf);
  Pretendi(static_cast<bool>(ambiente.ScegliAnno(anno)), "scelta dell'anno");
  return rapporti;
}

Rapporto MisuraMemoriaGiornale(const OpzioniAmbiente& opzioni, const std::string& grande,
                               const std::string& decima) {
  const double poca = MegabyteGiornali(opzioni, decima);
  const double tanta = MegabyteGiornali(opzioni, grande);
  std::printf("# giornale-memoria: %.0f MB, %.0f MB\n", tanta, poca);
  return {"giornale-memoria", tanta / poca, 1.3};
}

void StampaGiornali(const OpzioniAmbiente& opzioni, const std::string& ditta,
                    const std::filesystem::path& file) {
  DialoghiMuti dialoghi;
  dialoghi.uscita = SceltaUscita{Destinazione::Pdf, file};
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  if (auto esito = ambiente.ApriDitta(ditta); !esito) {
    throw std::runtime_error(esito.Errore().messaggio);
  }
  Fabbrica fabbrica([&] { return std::make_unique<print::UscitaPdf>(file); });
  for (int i = 0; i < kAnni; ++i) StampaAnno(ambiente, fabbrica, kPrimoAnno + i);
  std::ofstream(file.string() + ".megabyte") << MegabytePropri() << '\n';
}

}  // namespace fenalto::banco
