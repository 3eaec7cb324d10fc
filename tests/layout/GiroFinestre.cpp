#include "layout/GiroFinestre.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTabWidget>
#include <QTest>
#include <array>

#include "demo/CreaDemo.h"
#include "screens/common/lists/Griglia.h"
#include "screens/main/Applicazione.h"
#include "screens/main/DialogoDitta.h"
#include "screens/main/DialogoNuovaDitta.h"

namespace fenalto::prova {
namespace {

/// A record for the windows that aren't archives of codes.
struct Esempio {
  const char* finestra;
  const char* chiave;
  const char* statement;
  const char* classe = "";
};
constexpr auto kEsempi = std::to_array<Esempio>({
    {"Movimenti", "tessarc", "SELECT Max(NumDoc) FROM Articoli WHERE Anno=2024 AND Riva=''"},
    {"FattureCli", "tessarc", "SELECT Max(NumDoc) FROM FattureCli WHERE Anno=2024 AND TipoDoc='01'",
     "01"},
    {"Fatture", "tessarc", "SELECT Max(NumDoc) FROM Articoli WHERE Anno=2024 AND Riva<>''"},
    {"MovimentiConto", "tessarc", "SELECT Min(Cod) FROM Clienti", "C"},
    {"InterrCliFor", "tessarc", "SELECT Min(Cod) FROM Fornitori", "F"},
    {"ScadenzeModifica", "tessarc",
     "SELECT Max(NumDoc) FROM Articoli WHERE Anno=2024 AND Riva<>''"},
    {"Cespiti", "tessarc", "SELECT Min(NCesp) FROM Cespiti"},
    {"VisCodiciRiga", "tessarc", "SELECT Min(Cod) FROM CodiciRiga"},
    {"EliminazioneProdotto", "tessarc", "SELECT Min(Cod) FROM CodiciRiga"},
    {"ProdottiMovCliFor", "tessarc", "SELECT Min(Cod) FROM Clienti", "C"},
    {"VisPdc", "tessarc", "SELECT Min(Cod) FROM Conti"},
});

/// Buttons that fill a window's lists without writing anything.
constexpr std::array kLeggono{"CercaScadenze", "Command1", "Aggiorna", "Controlla"};

constexpr int kAnno = 2024;

QList<QTabWidget*> SchedeIn(const QWidget& dove) {
  QList<QTabWidget*> schede;
  for (auto* una : dove.findChildren<QTabWidget*>()) {
    if (una->isVisible() && una->count() > 0) schede << una;
  }
  return schede;
}

QAbstractButton* PulsanteDi(const QWidget& dove, const char* nome) {
  for (auto* pulsante : dove.findChildren<QAbstractButton*>(QString::fromLatin1(nome))) {
    if (pulsante->isVisible() && pulsante->isEnabled()) return pulsante;
  }
  return nullptr;
}

/// Lets layouts settle: a change at the bottom takes a turn of events for each level above it.
void Assesta() {
  constexpr int kLivelli = 40;
  for (int i = 0; i < kLivelli; ++i) QTest::qWait(0);
}

}  // namespace

Risposta DialoghiCheAccettano::Domanda(const std::string&, Bottoni, Risposta predefinita,
                                       const std::string&, Icona) {
  return predefinita;
}

std::optional<std::string> DialoghiCheAccettano::Chiedi(const std::string&, const std::string&) {
  return std::nullopt;
}

std::optional<SceltaUscita> DialoghiCheAccettano::ScegliUscita(const std::string& rapporto,
                                                               bool esporta) {
  if (stampe.empty() || esporta) return std::nullopt;
  SceltaUscita scelta;
  scelta.destinazione = Destinazione::Pdf;
  scelta.file = stampe / (finestra + "-" + rapporto + ".pdf");
  return scelta;
}

std::optional<std::filesystem::path> DialoghiCheAccettano::ScegliFile(const std::string&, ModoFile,
                                                                      const std::string&) {
  return std::nullopt;
}

GiroFinestre::GiroFinestre() : orologio_(Data::DaGma(15, 11, kAnno).value()) {
  const OpzioniAmbiente opzioni = OpzioniProva(cartella_.Percorso());
  const auto creata = demo::CreaDemoSeVuota(opzioni, orologio_);
  EXPECT_TRUE(creata) << (creata ? "" : creata.Errore().messaggio);
  ambiente_ = std::make_unique<Ambiente>(opzioni, dialoghi_, orologio_, caso_);
  const auto aperta = ambiente_->ApriDitta("Demo", kAnno);
  EXPECT_TRUE(aperta) << (aperta ? "" : aperta.Errore().messaggio);
  principale_ = std::make_unique<screens::FinestraPrincipale>(*ambiente_,
                                                              screens::Applicazione::Costruttori());
  principale_->MostraSessione();
  for (auto* azione : principale_->findChildren<QAction*>()) azione->setVisible(true);
  principale_->show();
}

GiroFinestre::~GiroFinestre() {
  principale_.reset();
  ambiente_.reset();
}

void GiroFinestre::Fai(const QSize& misura, const Guarda& guarda) {
  principale_->resize(misura);
  Assesta();
  FuoriDalleFunzioni(guarda);
  ScelteDiDitta(guarda);
  Annuncio(guarda);
  for (const auto& [nome, costruttore] : screens::Applicazione::Costruttori()) {
    auto* finestra = Apri(nome);
    if (finestra == nullptr) {
      ADD_FAILURE() << "non si apre: " << nome.toStdString();
      continue;
    }
    Pagine(*finestra, nome, guarda);
    if (ApriUnRecord(*finestra)) Pagine(*finestra, nome + QStringLiteral(" aperta"), guarda);
    principale_->ChiudiTutto();
  }
}

void GiroFinestre::FuoriDalleFunzioni(const Guarda& guarda) {
  if (auto* sfondo = principale_->SfondoAperto()) guarda(*sfondo, QStringLiteral("Sfondo"));
  principale_->findChild<QAction*>(QStringLiteral("VoceGuida"))->trigger();
  Assesta();
  for (auto* finestra : QApplication::topLevelWidgets()) {
    if (finestra->objectName() != QLatin1String("Guida")) continue;
    guarda(*finestra, finestra->objectName());
    finestra->close();
  }
  principale_->activateWindow();
  principale_->findChild<QAction*>(QStringLiteral("BarraCerca"))->trigger();
  Assesta();
  if (auto* cerca = principale_->findChild<QWidget*>(QStringLiteral("CercaFunzione"))) {
    guarda(*cerca, cerca->objectName());
    cerca->close();
  } else {
    ADD_FAILURE() << "la ricerca non si apre";
  }
  Assesta();
}

void GiroFinestre::ScelteDiDitta(const Guarda& guarda) {
  const std::vector<DittaTrovata> ditte = {{"Demo", true}, {"Impianti Rossi", false}};
  screens::DialogoDitta scelta(
      ditte, [](const std::string&, std::string&) { return std::vector<int>{kAnno - 1, kAnno}; },
      principale_.get());
  screens::DialogoNuovaDitta nuova(ditte, principale_.get());
  nuova.accept();
  for (QDialog* dialogo : {static_cast<QDialog*>(&scelta), static_cast<QDialog*>(&nuova)}) {
    dialogo->show();
    Assesta();
    guarda(*dialogo, dialogo->objectName());
    dialogo->close();
  }
  Assesta();
}

void GiroFinestre::Annuncio(const Guarda& guarda) {
  auto* finestra = Apri(QStringLiteral("Fatture"));
  finestra->Annuncia(
      QStringLiteral("Registrata la fattura n. 123 con il protocollo 45.\nUna riga che non sta in "
                     "una sola: ") +
      QString(QStringLiteral("lunga ")).repeated(60));
  Assesta();
  guarda(*finestra, QStringLiteral("Fatture con annuncio"));
  principale_->ChiudiTutto();
}

screens::FinestraFunzione* GiroFinestre::Apri(const QString& nome) {
  const QStringList parti = nome.split(QLatin1Char(':'));
  auto* finestra =
      principale_->ApriFunzione(parti.front(), parti.size() > 1 ? parti.at(1).toInt() : -1);
  Assesta();
  return finestra;
}

void GiroFinestre::Pagine(screens::FinestraFunzione& finestra, const QString& dove,
                          const Guarda& guarda) {
  guarda(finestra, dove);
  for (auto* schede : SchedeIn(finestra)) {
    const int prima = schede->currentIndex();
    for (int pagina = 0; pagina < schede->count(); ++pagina) {
      if (pagina == prima || !schede->isTabEnabled(pagina) || !schede->isTabVisible(pagina)) {
        continue;
      }
      schede->setCurrentIndex(pagina);
      Assesta();
      if (schede->currentIndex() != pagina) continue;
      guarda(finestra, QStringLiteral("%1 %2 %3").arg(dove, schede->objectName()).arg(pagina));
    }
    schede->setCurrentIndex(prima);
    Assesta();
  }
}

std::string GiroFinestre::UnCodice(const std::string& statement) const {
  return ambiente_->ArchivioDi("tessarc").Singolo(statement).Testo();
}

bool GiroFinestre::ApriUnRecord(screens::FinestraFunzione& finestra) {
  bool aperto = false;
  for (const auto& esempio : kEsempi) {
    if (finestra.Nome() != QLatin1String(esempio.finestra)) continue;
    const std::string codice = UnCodice(esempio.statement);
    finestra.ApriRecord({.codice = codice, .anno = kAnno, .classe = esempio.classe});
    aperto = true;
    if (!codice.empty()) continue;
    // Nothing of the kind is stored: a new one, with a row.
    for (const char* nome : {"Nuovo", "PNuovaRiga"}) {
      if (auto* pulsante = PulsanteDi(finestra, nome)) pulsante->click();
      Assesta();
    }
  }
  for (const char* nome : kLeggono) {
    auto* pulsante = aperto ? nullptr : PulsanteDi(finestra, nome);
    if (pulsante == nullptr) continue;
    pulsante->click();
    aperto = true;
  }
  Assesta();
  auto* codici = finestra.findChild<screens::Griglia*>(QStringLiteral("GrigliaArchivio"));
  if (!aperto && codici != nullptr && codici->Modello().rowCount() > 0) {
    finestra.ApriRecord({.codice = codici->Modello().Riga(0).front().Testo()});
    aperto = true;
  }
  Assesta();
  for (auto* righe : finestra.findChildren<screens::Griglia*>()) {
    if (!righe->isVisible() || righe == codici || righe->Modello().rowCount() == 0) continue;
    righe->VaiARiga(0);
    emit righe->RigaScelta(0);
    aperto = true;
    Assesta();
    break;
  }
  return aperto;
}

void GiroFinestre::Stampa(const std::filesystem::path& cartella) {
  dialoghi_.stampe = cartella;
  for (const auto& [nome, costruttore] : screens::Applicazione::Costruttori()) {
    auto* finestra = Apri(nome);
    if (finestra == nullptr) continue;
    dialoghi_.finestra = finestra->Nome().toStdString();
    ApriUnRecord(*finestra);
    Pagine(*finestra, nome, [](QWidget& aperta, const QString&) {
      if (auto* stampa = PulsanteDi(aperta, "Stampa")) stampa->click();
    });
    principale_->ChiudiTutto();
  }
  dialoghi_.stampe.clear();
}

}  // namespace fenalto::prova
