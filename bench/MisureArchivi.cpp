#include "bench/MisureArchivi.h"

#include <QApplication>
#include <QLineEdit>
#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>

#include "bench/GeneraParti.h"
#include "bench/Nuda.h"
#include "bench/Programma.h"
#include "core/archives/FonteCodici.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::banco {
namespace {

constexpr const char* kMolti = "ArchivioMolti";
constexpr const char* kPochi = "ArchivioPochi";
constexpr int kMoltiClienti = 50'000;
constexpr int kPochiClienti = 500;
constexpr int kVolte = 11;
constexpr int kVociCampo = 60;  // that a code field lists

/// Typed letter by letter: found all over, found seldom, a code, with an accent, not found at all.
constexpr std::array kTesti = {"fumag", "esposito e f", "0499", "nicolò sp", "zqxw"};

// Keeps a result from being computed for nothing.
volatile std::int64_t ultimo = 0;

/// Beginnings of a text, a character more each.
std::vector<std::string> Battute(const char* testo) {
  std::vector<std::string> battute;
  const QString intero = QString::fromUtf8(testo);
  for (int i = 1; i <= intero.size(); ++i) battute.push_back(intero.left(i).toStdString());
  return battute;
}

using Battuta = std::function<void(const std::string&)>;

/// The slowest key stroke of each, in seconds: of every stroke the median of several runs, taken in
/// turn so that both see the same machine.
struct Peggiori {
  double nostra = 0;
  double nuda = 0;
  [[nodiscard]] double Rapporto() const { return nostra / nuda; }
};

Peggiori MisuraBattute(const Battuta& nostra, const Battuta& nuda) {
  Peggiori peggiori;
  for (const char* testo : kTesti) {
    const auto battute = Battute(testo);
    std::vector<std::vector<double>> nostre(battute.size());
    std::vector<std::vector<double>> nude(battute.size());
    for (int volta = 0; volta < kVolte; ++volta) {
      for (std::size_t i = 0; i < battute.size(); ++i) {
        nostre[i].push_back(Secondi([&] { nostra(battute[i]); }));
        nude[i].push_back(Secondi([&] { nuda(battute[i]); }));
      }
      nostra("");
    }
    for (std::size_t i = 0; i < battute.size(); ++i) {
      peggiori.nostra = std::max(peggiori.nostra, Mediana(nostre[i]));
      peggiori.nuda = std::max(peggiori.nuda, Mediana(nude[i]));
    }
  }
  return peggiori;
}

/// The customers plain, all their columns, with their key alone.
void GeneraClientiNudi(const std::filesystem::path& tessarc, const std::filesystem::path& nuda) {
  std::filesystem::remove(nuda);
  sqlite3* motore = nullptr;
  if (sqlite3_open(nuda.c_str(), &motore) != SQLITE_OK) throw std::runtime_error("nuda");
  engine::sqlite::RegistraMotore(motore);
  const std::string sql = "ATTACH '" + tessarc.string() +
                          "' AS piena; CREATE TABLE Clienti AS SELECT * FROM piena.Clienti; "
                          "CREATE UNIQUE INDEX ClientiChiave ON Clienti (Cod); DETACH piena;";
  const int esito = sqlite3_exec(motore, sql.c_str(), nullptr, nullptr, nullptr);
  const std::string errore = sqlite3_errmsg(motore);
  sqlite3_close(motore);
  if (esito != SQLITE_OK) throw std::runtime_error(errore);
}

/// Code that begins with the text or name that holds it, in order of code.
Battuta CercaNuda(Nuda& nuda, const char* colonne, int massimo) {
  auto* istruzione = nuda.Prepara((std::string("SELECT ") + colonne +
                                   " FROM Clienti WHERE Cod LIKE ?1 OR ragsoc1 LIKE ?2 ORDER BY "
                                   "Cod LIMIT " +
                                   std::to_string(massimo))
                                      .c_str());
  return [istruzione](const std::string& testo) {
    const std::string inizia = testo + "%";
    const std::string contiene = "%" + inizia;
    Lega(istruzione, 1, inizia.c_str());
    Lega(istruzione, 2, contiene.c_str());
    ultimo = Leggi(istruzione);
  };
}

/// Of the window's list and of a code field's, each to the bare query with the same columns and as
/// many rows; the greater counts.
Rapporto MisuraCerca(const OpzioniAmbiente& opzioni) {
  const auto file = opzioni.cartellaProgramma / "clienti-nudi.db";
  GeneraClientiNudi(opzioni.cartellaProgramma / kMolti / "Cont32.mdb", file);
  Nuda nuda(file);
  constexpr int kPagina = 200;  // rows that the window's list reads at once

  Programma programma(opzioni, kMolti);
  auto* finestra = programma.applicazione.Principale().ApriFunzione(QStringLiteral("Clienti"));
  auto* cerca =
      finestra == nullptr ? nullptr : finestra->findChild<QLineEdit*>(QStringLiteral("Cerca"));
  if (cerca == nullptr) throw std::runtime_error("Clienti non si apre");
  QApplication::processEvents();
  const Peggiori elenco = MisuraBattute(
      [&](const std::string& testo) {
        cerca->setText(QString::fromStdString(testo));
        // The list is read by a timer of no delay, then painted.
        for (int giro = 0; giro < 3; ++giro) QApplication::processEvents();
      },
      CercaNuda(nuda, "Cod, ragsoc1, localita, Prov, telefono1, piva", kPagina));

  const auto fonte = archives::Fonte(programma.applicazione.Sessione(),
                                     {.nome = {}, .tabella = "Clienti", .descrizione = "ragsoc1"});
  const Peggiori campo = MisuraBattute(
      [&](const std::string& testo) {
        ultimo = static_cast<std::int64_t>(fonte->Cerca(testo, kVociCampo).size());
      },
      CercaNuda(nuda, "Cod, ragsoc1", kVociCampo));
  std::printf("# archivio-cerca: elenco %.1f ms a %.1f, campo %.1f ms a %.1f\n",
              elenco.nostra * 1e3, elenco.nuda * 1e3, campo.nostra * 1e3, campo.nuda * 1e3);
  return {"archivio-cerca", std::max(elenco.Rapporto(), campo.Rapporto()), 2.0};
}

}  // namespace

std::vector<Rapporto> MisureArchivi(const OpzioniAmbiente& opzioni, const Nomi& nomi) {
  std::vector<Rapporto> rapporti;
  const bool apertura = Chiesto(nomi, "archivio-apertura");
  const bool cerca = Chiesto(nomi, "archivio-cerca");
  if (!apertura && !cerca) return rapporti;
  GeneraParti(opzioni, kPochi, kPochiClienti);
  GeneraParti(opzioni, kMolti, kMoltiClienti);
  if (apertura) {
    rapporti.push_back(
        MisuraApertura("archivio-apertura", opzioni, QStringLiteral("Clienti"), kMolti, kPochi));
  }
  if (cerca) rapporti.push_back(MisuraCerca(opzioni));
  return rapporti;
}

}  // namespace fenalto::banco
