#include "screens/main/Applicazione.h"

#include <QApplication>
#include <QFontDatabase>
#include <QIcon>
#include <QLibraryInfo>
#include <QLockFile>
#include <QPalette>
#include <QStandardPaths>
#include <QTimer>
#include <QTranslator>

#include "screens/archives/FinestraImporta.h"
#include "screens/assets/FinestraCespiti.h"
#include "screens/common/archive/FinestraArchivio.h"
#include "screens/common/look/Icone.h"
#include "screens/common/look/Stile.h"
#include "screens/company/FinestraUtility.h"
#include "screens/documents/entry/FinestraFattureCli.h"
#include "screens/documents/parties/FinestraClienti.h"
#include "screens/documents/parties/FinestraElencoParti.h"
#include "screens/documents/parties/FinestraInterrCliFor.h"
#include "screens/documents/recent/FinestraProdottiRecenti.h"
#include "screens/documents/types/FinestraTipiDocumento.h"
#include "screens/duedates/FinestraCodiciPagamento.h"
#include "screens/duedates/FinestraScadenze.h"
#include "screens/duedates/FinestraScadenzeModifica.h"
#include "screens/duedates/bank/FinestraEstrattoBanca.h"
#include "screens/duedates/payments/FinestraAnticipi.h"
#include "screens/duedates/payments/FinestraInsoluti.h"
#include "screens/duedates/payments/FinestraPagamenti.h"
#include "screens/duedates/reports/FinestraEstrattoConto.h"
#include "screens/duedates/reports/FinestraSituazioneScadenze.h"
#include "screens/duedates/reports/FinestraStampaScadenze.h"
#include "screens/duedates/reports/FinestraTestSaldi.h"
#include "screens/duedates/riba/FinestraRaggruppamento.h"
#include "screens/duedates/riba/FinestraRiba.h"
#include "screens/ledger/FinestraBilancioVerifica.h"
#include "screens/ledger/FinestraGiornale.h"
#include "screens/ledger/FinestraMovimenti.h"
#include "screens/ledger/FinestraMovimentiConto.h"
#include "screens/ledger/FinestraVisPdc.h"
#include "screens/ledger/closing/FinestraChiusureAperture.h"
#include "screens/ledger/closing/FinestraNuovoEsercizio.h"
#include "screens/main/Archivi.h"
#include "screens/users/FinestraUt.h"
#include "screens/vat/entry/FinestraFatture.h"
#include "screens/vat/entry/FinestraFattureSospIva.h"
#include "screens/vat/register/FinestraRegistriIva.h"
#include "screens/vat/register/FinestraRegistroIva.h"
#include "screens/warehouse/codes/FinestraEliminazioneProdotto.h"
#include "screens/warehouse/codes/FinestraVisCodiciRiga.h"
#include "screens/warehouse/products/FinestraProdotti.h"
#include "screens/warehouse/stock/FinestraStProdotti.h"
#include "screens/warehouse/stock/FinestraTrasportoEsistenze.h"

namespace fenalto::screens {
namespace {

constexpr int kControllo = 2'000;  // ms between looks at the running backup and at idle readings

QString Qs(const std::filesystem::path& percorso) {
  return QString::fromStdString(percorso.string());
}

template <typename Finestra>
FinestraPrincipale::Costruttore Nuova() {
  return [](Finestre& finestre) -> FinestraFunzione* { return new Finestra(finestre); };
}

/// A class of windows that serves several functions, by what tells them apart.
template <typename Finestra, typename Quale>
FinestraPrincipale::Costruttore NuovaCon(const Quale& quale) {
  return [quale](Finestre& finestre) -> FinestraFunzione* { return new Finestra(quale, finestre); };
}

/// The font of the user's desktop. Without a desktop nobody has chosen one: then a family whose
/// digits are alike in width, as where the desktop names a family that isn't there.
void ScegliCarattere() {
  const bool scelto = !qEnvironmentVariableIsEmpty("XDG_CURRENT_DESKTOP") ||
                      !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORMTHEME");
  const QFont sistema = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  const auto famiglie = QFontDatabase::families();
  if (scelto && famiglie.contains(sistema.family())) return;
  constexpr double kPunti = 10;
  for (const auto* famiglia : {"Liberation Sans", "DejaVu Sans"}) {
    if (!famiglie.contains(QLatin1String(famiglia))) continue;
    QFont carattere(QString::fromLatin1(famiglia));
    carattere.setPointSizeF(std::max(kPunti, sistema.pointSizeF()));
    QApplication::setFont(carattere);
    return;
  }
}

}  // namespace

/// Held while an instance of the program runs for this user.
struct Applicazione::Istanza {
  explicit Istanza(const QString& file) : blocco(file) { blocco.setStaleLockTime(0); }
  QLockFile blocco;
};

Applicazione::Applicazione(OpzioniAmbiente opzioni, Dialoghi& dialoghi, Orologio& orologio,
                           Caso& caso)
    : dialoghi_(dialoghi),
      ambiente_(std::make_unique<Ambiente>(std::move(opzioni), dialoghi, orologio, caso)),
      principale_(std::make_unique<FinestraPrincipale>(*ambiente_, Costruttori())) {
  QObject::connect(principale_.get(), &FinestraPrincipale::FineChiesta, principale_.get(),
                   [this] { ChiediFine(); });
}

Applicazione::~Applicazione() {
  principale_.reset();
  ambiente_.reset();
}

FinestraPrincipale::Costruttori Applicazione::Costruttori() {
  FinestraPrincipale::Costruttori costruttori{
      {QStringLiteral("AbbinaEstratto"), Nuova<FinestraEstrattoBanca>()},
      {QStringLiteral("AccontiPrimaDiFattura"), Nuova<FinestraAnticipi>()},
      {QStringLiteral("Cespiti"), Nuova<FinestraCespiti>()},
      {QStringLiteral("ChiusureAperture"), Nuova<FinestraChiusureAperture>()},
      {QStringLiteral("Clienti"), Nuova<FinestraClienti>()},
      {QStringLiteral("CodiciPagamento"), Nuova<FinestraCodiciPagamento>()},
      {QStringLiteral("CodiciRiga"), Nuova<FinestraProdotti>()},
      {QStringLiteral("EliminazioneProdotto"), Nuova<FinestraEliminazioneProdotto>()},
      {QStringLiteral("Fatture"),
       [](Finestre& finestre) -> FinestraFunzione* { return FinestraFatture::Crea(finestre); }},
      {QStringLiteral("FattureCli"),
       [](Finestre& finestre) -> FinestraFunzione* { return FinestraFattureCli::Crea(finestre); }},
      {QStringLiteral("FattureSospIva"), Nuova<FinestraFattureSospIva>()},
      {QStringLiteral("Importa"), Nuova<FinestraImporta>()},
      {QStringLiteral("InsolutiRiba"), Nuova<FinestraInsoluti>()},
      {QStringLiteral("InterrCliFor"), Nuova<FinestraInterrCliFor>()},
      {QStringLiteral("Movimenti"), Nuova<FinestraMovimenti>()},
      {QStringLiteral("MovimentiConto"), Nuova<FinestraMovimentiConto>()},
      {QStringLiteral("NuovoEsercizio"), Nuova<FinestraNuovoEsercizio>()},
      {QStringLiteral("PagamentiDaScadenzario"),
       NuovaCon<FinestraPagamenti>(duedates::PagamentiScadenzario::Modo::PiuParti)},
      {QStringLiteral("PagamentiDaScadenzario1Cli"),
       NuovaCon<FinestraPagamenti>(duedates::PagamentiScadenzario::Modo::SingolaParte)},
      {QStringLiteral("ProdottiMovCliFor"), Nuova<FinestraProdottiRecenti>()},
      {QStringLiteral("RiBa"), Nuova<FinestraRiba>()},
      {QStringLiteral("RiBaRaggruppamento"), Nuova<FinestraRaggruppamento>()},
      {QStringLiteral("STBilancioVerifica"), Nuova<FinestraBilancioVerifica>()},
      {QStringLiteral("STClienti"), NuovaCon<FinestraElencoParti>(std::string("C"))},
      {QStringLiteral("STEstrattoConto"), Nuova<FinestraEstrattoConto>()},
      {QStringLiteral("STFornitori"), NuovaCon<FinestraElencoParti>(std::string("F"))},
      {QStringLiteral("STRegistroIvaUnico"), Nuova<FinestraRegistroIva>()},
      {QStringLiteral("STScadenzePerConto"),
       NuovaCon<FinestraStampaScadenze>(duedates::OrdineScadenze::PerConto)},
      {QStringLiteral("STScadenzePerData"),
       NuovaCon<FinestraStampaScadenze>(duedates::OrdineScadenze::PerData)},
      {QStringLiteral("Scadenze"), Nuova<FinestraScadenze>()},
      {QStringLiteral("ScadenzeModifica"), Nuova<FinestraScadenzeModifica>()},
      {QStringLiteral("SituazioneScadenze"), Nuova<FinestraSituazioneScadenze>()},
      {QStringLiteral("StGiornale"), Nuova<FinestraGiornale>()},
      {QStringLiteral("StProdotti"), Nuova<FinestraStProdotti>()},
      {QStringLiteral("StRegistriIva"), Nuova<FinestraRegistriIva>()},
      {QStringLiteral("TestSaldi"), Nuova<FinestraTestSaldi>()},
      {QStringLiteral("TipiFattureCli"), Nuova<FinestraTipiDocumento>()},
      {QStringLiteral("TrasportoEsistenze"), Nuova<FinestraTrasportoEsistenze>()},
      {QStringLiteral("Ut"), Nuova<FinestraUt>()},
      {QStringLiteral("Utility"), Nuova<FinestraUtility>()},
      {QStringLiteral("VisCodiciRiga"), Nuova<FinestraVisCodiciRiga>()},
      {QStringLiteral("VisPdc"), Nuova<FinestraVisPdc>()},
  };
  for (auto& descrizione : TuttiGliArchivi()) {
    const QString nome = QString::fromStdString(descrizione.finestra);
    costruttori.emplace(nome, [descrizione = std::move(descrizione)](Finestre& finestre) {
      return static_cast<FinestraFunzione*>(new FinestraArchivio(descrizione, finestre));
    });
  }
  return costruttori;
}

void Applicazione::Prepara(const std::filesystem::path& cartellaDati) {
  QApplication::setApplicationName(QStringLiteral("fenalto"));
  QApplication::setOrganizationName(QStringLiteral("fenalto"));
  const auto caratteri = cartellaDati / "fonts";
  std::error_code errore;
  for (const auto& file : std::filesystem::directory_iterator(caratteri, errore)) {
    if (file.path().extension() == ".ttf") QFontDatabase::addApplicationFont(Qs(file.path()));
  }
  QFont::insertSubstitution(QStringLiteral("Arial Narrow"),
                            QStringLiteral("Liberation Sans Narrow"));
  ScegliCarattere();
  CartellaIcone(cartellaDati / "icons" / "azioni");
  VestiProgramma();
  QApplication::setWindowIcon(QIcon(Qs(cartellaDati / "icons" / "fenalto.png")));
  static QTranslator traduzione;
  if (traduzione.load(QStringLiteral("qtbase_it"),
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(&traduzione);
  }
}

bool Applicazione::SecondaIstanza() {
  const QString cartella = QStandardPaths::writableLocation(QStandardPaths::TempLocation);
  istanza_ = std::make_unique<Istanza>(
      cartella + QStringLiteral("/fenalto-%1.lck")
                     .arg(qEnvironmentVariable("USER", QStringLiteral("utente"))));
  if (istanza_->blocco.tryLock(0)) return true;
  return dialoghi_.Domanda("Il programma è già aperto!\nsi vuole aprire un'altra sessione",
                           Bottoni::SiNo, Risposta::No, "Fenalto", Icona::Avviso) == Risposta::Si;
}

bool Applicazione::Avvia(const std::string& ditta) {
  if (!SecondaIstanza()) return false;
  if (!ambiente_->Avvia(ditta)) return false;
  principale_->MostraSessione();
  return true;
}

Esito<bool> Applicazione::AvviaSu(const std::string& ditta, int anno, const std::string& utente,
                                  const std::string& password) {
  ambiente_->RiprendiLavori();
  if (auto aperta = ambiente_->ApriDitta(ditta, anno); !aperta) return aperta;
  if (!utente.empty()) {
    if (auto accesso = ambiente_->Accedi(utente, password); !accesso) return accesso;
  }
  principale_->MostraSessione();
  return true;
}

void Applicazione::Mostra() {
  principale_->show();
  QTimer::singleShot(0, principale_.get(), [this] { ambiente_->AvviaCopia(); });
  auto* controllo = new QTimer(principale_.get());
  QObject::connect(controllo, &QTimer::timeout, principale_.get(), [this] {
    if (ambiente_->DittaAperta()) {
      ambiente_->Basi().RilasciaLetture();
      ambiente_->AvviaCopia();
    }
    if (const auto guasto = ambiente_->EsitoCopia(); !guasto.empty()) {
      dialoghi_.Messaggio(guasto, Icona::Avviso);
    }
  });
  controllo->start(kControllo);
}

void Applicazione::ChiediFine() {
  fineChiesta_ = true;
  QTimer::singleShot(0, principale_.get(), [this] {
    principale_->ChiudiTutto();
    principale_->close();
  });
}

}  // namespace fenalto::screens
