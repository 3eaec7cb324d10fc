#include "screens/documents/types/FinestraTipiDocumento.h"

#include <QComboBox>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>
#include <filesystem>

#include "documents/types/TipiDocumento.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/Qs.h"
#include "screens/documents/types/AnteprimaImmagine.h"
#include "screens/documents/types/PaginaImpostazioniDocumenti.h"

namespace fenalto::screens {
namespace {

constexpr int kTipi = 0;
constexpr int kImpostazioni = 1;

}  // namespace

FinestraTipiDocumento::FinestraTipiDocumento(Finestre& finestre)
    : FinestraArchivio(documents::ArchivioTipiDocumento(), finestre),
      impostazioni_(new PaginaImpostazioniDocumenti(finestre)),
      anteprima_(new AnteprimaImmagine(QStringLiteral("AnteprimaLogo"))) {
  Disponi();
  Pagina(documents::kPaginaStampaTipo).addWidget(anteprima_);
  constexpr int kNomeModello = 16;
  Modelli()->setMinimumContentsLength(kNomeModello);
  for (const char* campo : {"Logo", "mfCart", "mfProg"}) {
    auto* pulsante = SchedeRecord().findChild<QPushButton*>(
        QString::fromLatin1(documents::kScegli) + QString::fromLatin1(campo));
    pulsante->setFocusPolicy(Qt::ClickFocus);
    connect(pulsante, &QPushButton::clicked, this, [this, campo] { Sfoglia(campo); });
  }
}

FinestraTipiDocumento::~FinestraTipiDocumento() {
  // As the window of archives does: nothing is to be read from controls that go.
  hide();
  delete impostazioni_;
}

/// The archive becomes the first of two pages.
void FinestraTipiDocumento::Disponi() {
  auto* archivio = findChild<QSplitter*>(QString(), Qt::FindDirectChildrenOnly);
  schede_ = new QTabWidget;
  PreparaSchede(*schede_, QStringLiteral("Schede"));
  layout()->removeWidget(archivio);
  schede_->addTab(archivio, tr("Tipi documento"));
  schede_->addTab(impostazioni_, tr("Impostazioni della ditta"));
  MisuraDellaPagina(*schede_);
  layout()->addWidget(schede_);
  connect(schede_, &QTabWidget::currentChanged, this, [this] {
    if (AlleImpostazioni()) impostazioni_->Fuoco();
  });
}

bool FinestraTipiDocumento::AlleImpostazioni() const {
  return schede_->currentIndex() == kImpostazioni;
}

void FinestraTipiDocumento::Sfoglia(const std::string& campo) {
  if (!Archivio().Aperto() || !Legami().Raccogli()) return;
  const bool cartella = campo == "mfCart";
  const bool logo = campo == "Logo";
  const auto scelto = Dialogo().ScegliFile(
      cartella ? "Seleziona una cartella:"
      : logo   ? "Immagine"
               : "Programma da eseguire",
      cartella ? ModoFile::Cartella : ModoFile::Apri,
      logo ? "Immagini supportate (jpg,bmp,gif) (*.jpg *.jpeg *.bmp *.gif)" : "");
  if (!scelto) return;
  std::string tenuto = documents::PercorsoTenuto(Sessione(), *scelto);
  if (tenuto.empty()) return;
  if (cartella && tenuto.back() != std::filesystem::path::preferred_separator) {
    tenuto += std::filesystem::path::preferred_separator;
  }
  Archivio().Record().Scrivi(campo, tenuto);
  MostraRecord();
}

QComboBox* FinestraTipiDocumento::Modelli() {
  return SchedeRecord().findChild<QComboBox*>(QStringLiteral("Modulo"));
}

void FinestraTipiDocumento::MostraRecord() {
  // A list of the models that there are, and that of the type if it has gone.
  auto* modelli = Modelli();
  const bool aperto = Archivio().Aperto();
  const QString suo = aperto ? Qs(Archivio().Record().Testo("Modulo")) : QString();
  QStringList voci{QString()};
  for (const auto& nome : documents::ModelliPersonali(Sessione())) voci << Qs(nome);
  if (!voci.contains(suo)) voci << suo;
  modelli->clear();
  modelli->addItems(voci);
  FinestraArchivio::MostraRecord();
  anteprima_->Mostra(aperto ? documents::PercorsoVero(Sessione(), Archivio().Record().Testo("Logo"))
                            : std::filesystem::path());
}

bool FinestraTipiDocumento::InModifica() const {
  return FinestraArchivio::InModifica() || impostazioni_->InModifica();
}

void FinestraTipiDocumento::Abbandona() {
  FinestraArchivio::Abbandona();
  anteprima_->Mostra({});
}

void FinestraTipiDocumento::ApriScheda(int scheda) {
  schede_->setCurrentIndex(kTipi);
  FinestraArchivio::ApriScheda(scheda);
}

void FinestraTipiDocumento::ApriRecord(const Rinvio& rinvio) {
  schede_->setCurrentIndex(kTipi);
  FinestraArchivio::ApriRecord(rinvio);
}

bool FinestraTipiDocumento::Indietro() {
  if (!AlleImpostazioni()) return FinestraArchivio::Indietro();
  schede_->setCurrentIndex(kTipi);
  return true;
}

void FinestraTipiDocumento::Aggiorna() {
  FinestraArchivio::Aggiorna();
  impostazioni_->Aggiorna();
}

bool FinestraTipiDocumento::PremiConferma() {
  return AlleImpostazioni() ? Premi({"SalvaModifiche"}) : FinestraArchivio::PremiConferma();
}

}  // namespace fenalto::screens
