#include "bench/MisureFatture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "bench/GeneraParti.h"
#include "bench/Nuda.h"
#include "bench/Programma.h"
#include "core/sql/Criterio.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "screens/common/windows/FinestraFunzione.h"
#include "vat/entry/RegistrazioneIva.h"

namespace fenalto::banco {
namespace {

constexpr const char* kPoche = "FatturePoche";
constexpr int kPocheFatture = 1'000;
constexpr int kGiri = 5;
constexpr int kConferme = 15;  // in a round
constexpr int kRighe = kRigheImponibile + 2;

/// Two files with the registrations and due dates plain, all their columns, with their keys alone.
void GeneraNude(const std::filesystem::path& ditta, const std::filesystem::path& tessarc,
                const std::filesystem::path& scadenzario) {
  for (const auto& file : {tessarc, scadenzario}) std::filesystem::remove(file);
  sqlite3* motore = nullptr;
  if (sqlite3_open(tessarc.c_str(), &motore) != SQLITE_OK) throw std::runtime_error("nuda");
  engine::sqlite::RegistraMotore(motore);
  const std::string sql = "ATTACH '" + scadenzario.string() + "' AS s; ATTACH '" +
                          (ditta / "Cont32.mdb").string() + "' AS pt; ATTACH '" +
                          (ditta / "Scad32.mdb").string() +
                          "' AS ps; BEGIN;"
                          "CREATE TABLE Articoli AS SELECT * FROM pt.Articoli;"
                          "CREATE UNIQUE INDEX ArticoliChiave ON Articoli (Anno, NumDoc);"
                          "CREATE TABLE Movimenti AS SELECT * FROM pt.Movimenti;"
                          "CREATE INDEX MovimentiChiave ON Movimenti (Anno, NumDoc);"
                          "CREATE TABLE s.Scadenze AS SELECT * FROM ps.Scadenze;"
                          "CREATE UNIQUE INDEX s.ScadenzeChiave ON Scadenze (Numero); COMMIT;";
  const int esito = sqlite3_exec(motore, sql.c_str(), nullptr, nullptr, nullptr);
  const std::string errore = sqlite3_errmsg(motore);
  sqlite3_close(motore);
  if (esito != SQLITE_OK) throw std::runtime_error(errore);
}

/// An invoice whose rows are bound to prepared insertions, in one transaction over both files.
class FatturaNuda {
 public:
  explicit FatturaNuda(Nuda& nuda)
      : nuda_(nuda),
        massimo_(nuda.Prepara("SELECT MAX(NumDoc) FROM Articoli WHERE Anno=2024")),
        scadenza_(nuda.Prepara("SELECT MAX(Numero) FROM s.Scadenze")),
        scriviTesta_(nuda.Prepara(
            "INSERT INTO Articoli (Anno, NumDoc, Dt, CFP, Conto, Riva, NProt, DtFat, NFat, "
            "Pagamento) VALUES (2024, ?1, 45657, 'F', '00001', '3', ?1, 45657, 'A 12', 'XDUE')")),
        scriviRiga_(nuda.Prepara(
            "INSERT INTO Movimenti (Anno, NumDoc, Posi, Causale, Descrizione, CFP, Conto, "
            "ImpoDare, "
            "ImpoAvere, CFPControp, ContoControp, TIPORIGA, CodIva, Imponibile, Iva, IvaInd, _Dt) "
            "VALUES (2024, ?1, ?2, '3', 'FATT. A 12 Del 31/12/2024', ?3, ?4, ?5, ?6, 'F', '00001', "
            "3, '22', 1000000, 220000, 0, 45657)")),
        scriviScadenza_(nuda.Prepara(
            "INSERT INTO s.Scadenze (Numero, CFP, Conto, Dt, Tipo, Stato, Anno, Articolo, Riva, "
            "NProt, NFat, DtFat, Programma, Importo, ImportoE, Descrizione, Pagamento) VALUES (?1, "
            "'F', '00001', 45688, '02', '00', 2024, ?2, '3', ?2, 12, 45657, 'fatture', 47248138, "
            "24400, 'FATT. A 12 Del 31/12/2024', 'XDUE')")) {}

  void Conferma() {
    nuda_.Esegui("BEGIN IMMEDIATE");
    const std::int64_t numero = Massimo(massimo_) + 1;
    const std::int64_t scadenza = Massimo(scadenza_);
    sqlite3_bind_int64(scriviTesta_, 1, numero);
    Fai(scriviTesta_);
    for (int i = 0; i < kRighe; ++i) Riga(numero, i);
    for (int i = 1; i <= 2; ++i) {
      sqlite3_bind_int64(scriviScadenza_, 1, scadenza + i);
      sqlite3_bind_int64(scriviScadenza_, 2, numero);
      Fai(scriviScadenza_);
    }
    nuda_.Esegui("COMMIT");
  }

 private:
  static std::int64_t Massimo(sqlite3_stmt* istruzione) {
    sqlite3_step(istruzione);
    const std::int64_t massimo = sqlite3_column_int64(istruzione, 0);
    sqlite3_reset(istruzione);
    return massimo;
  }
  static void Fai(sqlite3_stmt* istruzione) {
    if (sqlite3_step(istruzione) != SQLITE_DONE) throw std::runtime_error("scrittura nuda");
    sqlite3_reset(istruzione);
  }
  void Riga(std::int64_t numero, int indice) {
    const bool ultima = indice + 1 == kRighe;
    sqlite3_bind_int64(scriviRiga_, 1, numero);
    sqlite3_bind_int(scriviRiga_, 2, 100 * (indice + 1));
    Lega(scriviRiga_, 3, ultima ? "F" : "P");
    Lega(scriviRiga_, 4, ultima ? "00001" : "500.001");
    sqlite3_bind_int64(scriviRiga_, 5, ultima ? 0 : 1'000'000);
    sqlite3_bind_int64(scriviRiga_, 6, ultima ? 4'880'000 : 0);
    Fai(scriviRiga_);
  }

  Nuda& nuda_;
  sqlite3_stmt* massimo_;
  sqlite3_stmt* scadenza_;
  sqlite3_stmt* scriviTesta_;
  sqlite3_stmt* scriviRiga_;
  sqlite3_stmt* scriviScadenza_;
};

void Digita(vat::RegistrazioneIva& fatture) {
  if (!fatture.Nuovo()) throw std::runtime_error("fattura non cominciata");
  const Data giorno = Data::DaGma(31, 12, kAnnoFatture).value();
  Scheda& testa = fatture.Testa();
  const auto campo = [&](const char* nome, const Valore& valore) {
    testa.Scrivi(nome, valore);
    fatture.TestaLasciata(nome);
  };
  campo("Dt", giorno);
  campo("Contox", kFornitoreFatture);
  campo("DtFat", giorno);
  // Another one each time: the same document twice is asked about.
  static int numero = 0;
  campo("NFat", "A " + std::to_string(++numero));
  campo("Pagamento", kPagamentoDueRate);
  for (int i = 0; i < kRigheImponibile; ++i) {
    fatture.PNuovaRiga();
    fatture.Riga().Scrivi("Conto", "500.001");
    fatture.Riga().Scrivi("CodIva", "22");
    fatture.Riga().Scrivi("Imponibile", Importo::DaUnita(100));
    fatture.RigaLasciata("Imponibile");
    if (!fatture.ConfermaRiga()) throw std::runtime_error("riga rifiutata");
  }
  testa.Scrivi("TotaleXVerifica", fatture.TotFat());
}

/// Types the register, as who opens the window does, and waits for its list.
void DigitaRegistro(screens::FinestraFunzione& finestra) {
  auto* registro = finestra.findChild<QLineEdit*>(QStringLiteral("RivaX"));
  auto* elenco = finestra.findChild<QTableView*>(QStringLiteral("ElencoFatture"));
  if (registro == nullptr || elenco == nullptr) throw std::runtime_error("Fatture: altri campi");
  QApplication::processEvents();
  registro->setFocus(Qt::TabFocusReason);
  const auto batti = [&](int tasto, const QString& testo) {
    QKeyEvent giu(QEvent::KeyPress, tasto, Qt::NoModifier, testo);
    QApplication::sendEvent(registro, &giu);
  };
  batti(Qt::Key_3, QString::fromLatin1(kRegistroAcquisti));
  batti(Qt::Key_Return, QString());
  QApplication::processEvents();
  if (elenco->model()->rowCount() == 0) throw std::runtime_error("Fatture: elenco vuoto");
}

/// Rows and due dates that stand beyond a number; they are erased.
void Togli(Ambiente& ambiente, std::int64_t dopo, int confermate) {
  const auto oltre = [&](const char* campo) {
    return std::string(" WHERE Anno=") + std::to_string(kAnnoFatture) + " AND " +
           sql::Criterio(campo, ">", dopo);
  };
  const std::int64_t righe =
      ambiente.ArchivioDi("tessarc").Esegui("DELETE * FROM Movimenti" + oltre("NumDoc"));
  ambiente.ArchivioDi("tessarc").Esegui("DELETE * FROM Articoli" + oltre("NumDoc"));
  const std::int64_t scadenze =
      ambiente.ArchivioDi("scadenzario").Esegui("DELETE * FROM Scadenze" + oltre("Articolo"));
  if (righe != static_cast<std::int64_t>(confermate) * kRighe || scadenze != 2LL * confermate) {
    throw std::runtime_error(
        "le fatture misurate non hanno sei righe e due scadenze: " + std::to_string(righe) +
        " righe, " + std::to_string(scadenze) + " scadenze");
  }
}

Rapporto MisuraConfermaFattura(const OpzioniAmbiente& opzioni) {
  const auto& cartella = opzioni.cartellaProgramma;
  const auto bareTessarc = cartella / "fatture-nude.db";
  const auto bareScadenze = cartella / "scadenze-nude.db";
  GeneraNude(cartella / kFattureMolte, bareTessarc, bareScadenze);
  DialoghiMuti dialoghi;
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  if (auto esito = ambiente.ApriDitta(kFattureMolte); !esito) {
    throw std::runtime_error(esito.Errore().messaggio);
  }
  Nuda nuda(bareTessarc);
  nuda.Esegui(("ATTACH '" + bareScadenze.string() + "' AS s").c_str());
  nuda.Esegui("PRAGMA s.journal_mode=TRUNCATE");
  nuda.Esegui("PRAGMA s.synchronous=FULL");
  FatturaNuda bara(nuda);
  vat::RegistrazioneIva fatture(ambiente);
  if (!fatture.ScegliRegistro(kRegistroAcquisti)) throw std::runtime_error("registro rifiutato");
  const std::int64_t prima =
      ambiente.Max("NumDoc", "Articoli", {{"Anno", kAnnoFatture}}, ambiente.ArchivioDi("tessarc"))
          .Intero();

  std::vector<double> nostre;
  std::vector<double> nude;
  for (int giro = 0; giro < kGiri; ++giro) {
    double nostro = 0;
    double nudo = 0;
    for (int i = 0; i < kConferme; ++i) {
      Digita(fatture);
      nostro += Secondi([&] {
        if (!fatture.Conferma()) throw std::runtime_error("conferma rifiutata");
      });
      nudo += Secondi([&] { bara.Conferma(); });
    }
    nostre.push_back(nostro);
    nude.push_back(nudo);
  }
  Togli(ambiente, prima, kGiri * kConferme);
  std::printf("# fattura: %.2f ms a %.2f\n", Mediana(nostre) / kConferme * 1e3,
              Mediana(nude) / kConferme * 1e3);
  return {"fattura", Mediana(nostre) / Mediana(nude), 1.7};
}

}  // namespace

std::vector<Rapporto> MisureFatture(const OpzioniAmbiente& opzioni, const Nomi& nomi) {
  std::vector<Rapporto> rapporti;
  const bool fattura = Chiesto(nomi, "fattura");
  const bool apertura = Chiesto(nomi, "fatture-apertura");
  if (!fattura && !apertura) return rapporti;
  GeneraFatture(opzioni, kFattureMolte, kQuanteFatture);
  if (fattura) rapporti.push_back(MisuraConfermaFattura(opzioni));
  if (apertura) {
    GeneraFatture(opzioni, kPoche, kPocheFatture);
    rapporti.push_back(MisuraApertura("fatture-apertura", opzioni, QStringLiteral("Fatture"),
                                      kFattureMolte, kPoche, DigitaRegistro));
  }
  return rapporti;
}

}  // namespace fenalto::banco
