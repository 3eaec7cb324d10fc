// The main window's help (the guide, its documents, F1) and the menus of its own.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMdiSubWindow>
#include <QMenu>
#include <QUrl>
#include <algorithm>
#include <functional>

#include "help/CapitoloDi.h"
#include "screens/common/fields/Qs.h"
#include "screens/help/FinestraGuida.h"
#include "screens/main/AreaLavoro.h"
#include "screens/main/FinestraPrincipale.h"
#include "screens/main/Sfondo.h"

namespace fenalto::screens {
namespace {

/// The function in which a control stands; empty for none.
QString FunzioneDi(const QWidget* controllo) {
  for (const auto* w = controllo; w != nullptr; w = w->parentWidget()) {
    if (const auto* finestra = qobject_cast<const FinestraFunzione*>(w))
      return finestra->NomePerGuida();
    if (w->objectName() == QLatin1String("CercaFunzione")) return w->objectName();
  }
  return {};
}

/// What a control is called on its window.
QString NomeCampo(const QWidget* controllo) {
  if (controllo == nullptr) return {};
  if (const auto* pulsante = qobject_cast<const QAbstractButton*>(controllo)) {
    return pulsante->text();
  }
  return controllo->accessibleName();
}

/// Where the guide stands: beside the program's data when installed, in the sources otherwise.
std::filesystem::path RadiceGuida(const std::filesystem::path& dati) {
  std::error_code errore;
  const auto installata = dati / "help";
  return std::filesystem::is_directory(installata, errore) ? installata
                                                           : dati.parent_path() / "docs";
}

}  // namespace

// --- Menus --------------------------------------------------------------------------------------

void FinestraPrincipale::CreaMenuAiuto(QMenu& menu) {
  const struct {
    const char* nome;
    QString testo;
    QKeySequence tasto;
    std::function<void()> scelta;
  } voci[] = {
      {"VoceGuida", tr("&Guida"), QKeySequence(Qt::Key_F1), [this] { AiutoContestuale(); }},
      {"VoceGuidaRapida", tr("guida &rapida"), {}, [this] { GuidaRapida(); }},
      {"VoceManuale", tr("&manuale di contabilità"), {}, [this] { ManualeContabilita(); }},
      {"VoceVideoCorsi", tr("&video corsi"), {}, [this] { VideoCorsi(); }},
      {"VoceTasti", tr("&Tasti"), {}, [this] { ApriGuida(QStringLiteral("02-la-tastiera.md")); }},
      {"VoceInformazioni", tr("&Informazioni"), {}, [this] { Informazioni(); }},
  };
  for (const auto& voce : voci) {
    auto* azione = menu.addAction(voce.testo);
    azione->setObjectName(QString::fromLatin1(voce.nome));
    azione->setShortcut(voce.tasto);
    connect(azione, &QAction::triggered, this, voce.scelta);
    if (azione->objectName() == QLatin1String("VoceVideoCorsi")) voceVideo_ = azione;
  }
  MostraVideoCorsi();
}

void FinestraPrincipale::CreaMenuFinestre(QMenu& menu) {
  const auto voce = [&](const char* nome, const QString& testo, auto&& scelta) {
    auto* azione = menu.addAction(testo);
    azione->setObjectName(QString::fromLatin1(nome));
    connect(azione, &QAction::triggered, this, scelta);
    return azione;
  };
  auto* davanti = voce("VoceChiudi", tr("&Chiudi la finestra"), [this] { ChiudiDavanti(); });
  auto* tutte = voce("VoceChiudiTutte", tr("Chiudi &tutte"), [this] { ChiudiUnaPerUna(); });
  auto* seguente =
      voce("VoceSuccessiva", tr("Finestra &successiva"), [this] { area_->Gira(true); });
  auto* filo = menu.addSeparator();
  filo->setObjectName(QStringLiteral("VociAperte"));
  menu.addSeparator();
  auto* esci = voce("VoceEsci", tr("&Esci"), [this] { close(); });
  esci->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
  connect(&menu, &QMenu::aboutToShow, this, [this, &menu, davanti, tutte, seguente] {
    const auto aperte = FinestreAperte().size();
    davanti->setEnabled(aperte > 0);
    tutte->setEnabled(aperte > 0);
    seguente->setEnabled(aperte > 1);
    ElencaFinestre(menu);
  });
}

/// The open windows stand between the two lines of the menu, the one in front ticked.
void FinestraPrincipale::ElencaFinestre(QMenu& menu) {
  const QString mia = QStringLiteral("VoceFinestra");
  for (auto* azione : menu.actions()) {
    if (azione->objectName() == mia) delete azione;
  }
  const auto azioni = menu.actions();
  const auto filo = std::find_if(azioni.begin(), azioni.end(), [](const QAction* azione) {
    return azione->objectName() == QLatin1String("VociAperte");
  });
  QAction* prima = *(filo + 1);
  const auto aperte = FinestreAperte();
  int numero = 0;
  for (auto* finestra : area_->InOrdine()) {
    constexpr int kConCifra = 9;
    const QString cifra = ++numero <= kConCifra ? QStringLiteral("&%1 ").arg(numero) : QString();
    auto* azione = new QAction(cifra + finestra->windowTitle(), &menu);
    azione->setObjectName(mia);
    azione->setCheckable(true);
    azione->setChecked(finestra == aperte.last());
    connect(azione, &QAction::triggered, finestra, [this, finestra] { PortaAvanti(*finestra); });
    menu.insertAction(prima, azione);
  }
}

void FinestraPrincipale::ChiudiDavanti() {
  const auto aperte = FinestreAperte();
  if (!aperte.isEmpty()) aperte.last()->Cornice()->close();
}

void FinestraPrincipale::ChiudiUnaPerUna() {
  auto aperte = FinestreAperte();
  while (!aperte.isEmpty() && aperte.takeLast()->Cornice()->close()) continue;
}

void FinestraPrincipale::Informazioni() {
  std::string testo =
      "Fenalto " FENALTO_VERSIONE "\nContabilità e gestione per la piccola impresa\n";
  if (ambiente_.DittaAperta()) {
    testo += "\nDitta: " + ambiente_.Ditta() + ", anno " + std::to_string(ambiente_.Anno()) +
             "\nArchivi: " + ambiente_.CartellaDitta().string();
  }
  testo +=
      "\nCartella del programma: " + ambiente_.CartellaProgramma().string() + "\nQt " + qVersion();
  ambiente_.Dialogo().Messaggio(testo);
}

// --- The guide ----------------------------------------------------------------------------------

std::filesystem::path FinestraPrincipale::CartellaGuida() const {
  return RadiceGuida(ambiente_.CartellaDati()) / "guida";
}

void FinestraPrincipale::ApriGuida(const QString& capitolo, const QString& ancora,
                                   const QString& campo) {
  if (!guida_) {
    guida_ = std::make_unique<FinestraGuida>(CartellaGuida());
    guida_->setWindowIcon(windowIcon());
    connect(guida_.get(), &FinestraGuida::Fuori, this, [this](const QUrl& indirizzo) {
      const QString dove = indirizzo.isLocalFile() ? indirizzo.toLocalFile() : indirizzo.toString();
      if (!ambiente_.Dialogo().ApriEsterno(dove.toStdString())) {
        ambiente_.Dialogo().Messaggio("non si può aprire " + dove.toStdString(), Icona::Avviso);
      }
    });
  }
  guida_->Apri({capitolo.toStdString(), ancora.toStdString()}, campo);
}

void FinestraPrincipale::AiutoContestuale() {
  const auto* controllo = focusWidget();
  QString funzione = FunzioneDi(controllo);
  QString campo = funzione.isEmpty() ? QString() : NomeCampo(controllo);
  if (funzione.isEmpty()) {
    const auto aperte = FinestreAperte();
    funzione = aperte.isEmpty() ? QStringLiteral("Sfondo") : aperte.last()->NomePerGuida();
  }
  const auto posto = help::CapitoloDi(funzione.toStdString());
  ApriGuida(Qs(posto.file), Qs(posto.ancora), campo);
}

// --- Documents ----------------------------------------------------------------------------------

void FinestraPrincipale::ApriDocumento(const QString& nome, const std::filesystem::path& file) {
  if (!ambiente_.Dialogo().ApriEsterno(file.string())) {
    ambiente_.Dialogo().Messaggio("non si può aprire " + nome.toStdString() +
                                      ": manca il programma " + "per leggere " + file.string(),
                                  Icona::Avviso);
  }
}

void FinestraPrincipale::GuidaRapida() {
  const auto file = ambiente_.CartellaProgramma() / "TrebHelpPdf" / "ZZGeneral-TrebHelp1.pdf";
  std::error_code errore;
  if (std::filesystem::exists(file, errore)) {
    ApriDocumento(QStringLiteral("la guida rapida"), file);
  } else {
    ApriGuida(QStringLiteral("01-cominciare.md"));
  }
}

void FinestraPrincipale::ManualeContabilita() {
  const bool aprire = ambiente_.Dialogo().Conferma(
      "Manuale dedicato alla parte contabile del programma: con dettagli utili per la maggior "
      "parte "
      "delle operazioni come fatture attive e passive, pagamenti, incassi, registrazione paghe e "
      "stipendi, interessi c/c bancario, apertura e chiusura conti... \n"
      "apro il manuale di contabilità adesso");
  if (!aprire) return;
  const auto file = ambiente_.CartellaProgramma() / "ManualeTessarc.CHM";
  std::error_code errore;
  if (std::filesystem::exists(file, errore)) {
    ApriDocumento(QStringLiteral("il manuale di contabilità"), file);
  } else {
    ApriGuida(QStringLiteral("04-primanota.md"));
  }
}

std::string FinestraPrincipale::IndirizzoVideoCorsi() {
  return ambiente_.LeggiImpostazione(ambiente_.FileStazione(), "impostazioni",
                                     "IndirizzoVideoCorsi");
}

void FinestraPrincipale::MostraVideoCorsi() {
  const bool mostra = !IndirizzoVideoCorsi().empty();
  collegamentoVideo_->setVisible(mostra);
  voceVideo_->setVisible(mostra);
  if (sfondo_ != nullptr) sfondo_->MostraVideoCorsi(mostra);
}

void FinestraPrincipale::VideoCorsi() {
  const std::string indirizzo = IndirizzoVideoCorsi();
  if (!ambiente_.Dialogo().ApriEsterno(indirizzo)) {
    ambiente_.Dialogo().Messaggio("non si può aprire " + indirizzo, Icona::Avviso);
  }
}

}  // namespace fenalto::screens
