#include "screens/warehouse/products/RiquadroFile.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/session/ImpostazioneAttiva.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"
#include "screens/common/rows/PannelloAllegati.h"
#include "screens/warehouse/products/Anteprima.h"
#include "warehouse/products/FileProdotto.h"

namespace fenalto::screens {
namespace {

constexpr const char* kSempre = "Imm_Ass_CodiciRiga";
constexpr const char* kImmagine = "FileImmagine";
constexpr const char* kDocumento = "FileDescrizione";

QListWidget* ElencoFile(const char* nome) {
  constexpr int kAltezza = 120;
  auto* elenco = new QListWidget;
  elenco->setObjectName(QString::fromLatin1(nome));
  elenco->setUniformItemSizes(true);
  elenco->setTextElideMode(Qt::ElideMiddle);
  elenco->setMinimumHeight(Cresciuta(kAltezza));
  elenco->setToolTip(QObject::tr("doppio clic o Invio: associa il file al prodotto"));
  return elenco;
}

void Riempi(QListWidget& elenco, const std::filesystem::path& cartella) {
  elenco.clear();
  for (const std::string& nome : warehouse::FileDi(cartella)) elenco.addItem(Qs(nome));
}

AllegatiDelRecord AllegatiProdotto(archives::ArchivioCodici& prodotti,
                                   warehouse::ParteProdotto& parte) {
  return {.elenco = [&parte] { return parte.allegati.Elenco(); },
          .aggiungi = [&parte](const auto& file) { return parte.allegati.Aggiungi(file); },
          .togli = [&parte](std::size_t indice) { return parte.allegati.Togli(indice); },
          .solaLettura = [&prodotti] { return !prodotti.Aperto() || prodotti.SolaLettura(); }};
}

}  // namespace

RiquadroFile::RiquadroFile(archives::ArchivioCodici& prodotti, warehouse::ParteProdotto& parte,
                           Finestre& finestre, QWidget* genitore)
    : QWidget(genitore),
      prodotti_(prodotti),
      finestre_(finestre),
      immagini_(ElencoFile("ElencoImmagini")),
      documenti_(ElencoFile("ElencoDocumenti")),
      anteprima_(new Anteprima(QStringLiteral("Anteprima"))),
      associata_(new Anteprima(QStringLiteral("ImmagineAssociata"))),
      mostraSempre_(Casella(kSempre, tr("mostra l'immagine anche sulla prima pagina"))),
      apri_(Pulsante(QStringLiteral("ApriDocumento"), tr("Apri documento"))),
      allegati_(new PannelloAllegati(AllegatiProdotto(prodotti, parte), finestre)) {
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addWidget(CreaElenchi());
  colonna->addWidget(allegati_);
  associata_->hide();
  mostraSempre_->setChecked(ImpostazioneAttiva(finestre.Sessione(), kSempre));
  connect(mostraSempre_, &QCheckBox::toggled, this, [this](bool sempre) {
    finestre_.Sessione().ScriviImpostazione({}, "config", kSempre, sempre ? "1" : "0");
    MostraImmagine();
  });
  connect(immagini_, &QListWidget::itemActivated, this, [this] { Scegli(kImmagine, *immagini_); });
  connect(documenti_, &QListWidget::itemActivated, this,
          [this] { Scegli(kDocumento, *documenti_); });
  connect(apri_, &QPushButton::clicked, this, &RiquadroFile::ApriDocumento);
}

QWidget* RiquadroFile::CreaElenchi() {
  auto* elenchi = new QWidget;
  auto* fila = new QHBoxLayout(elenchi);
  fila->setContentsMargins(0, 0, 0, 0);
  const auto metti = [fila](const QString& titolo, QWidget* sopra, QWidget* sotto) {
    auto* parte = new QVBoxLayout;
    parte->addWidget(Didascalia(titolo, sopra));
    parte->addWidget(sopra, 1);
    parte->addWidget(sotto, 0, Qt::AlignLeft);
    fila->addLayout(parte, 1);
  };
  // Both lists end on one line.
  mostraSempre_->setMinimumHeight(apri_->sizeHint().height());
  metti(tr("Immagini della ditta"), immagini_, mostraSempre_);
  metti(tr("Documenti della ditta"), documenti_, apri_);
  fila->addWidget(anteprima_, 1);
  return elenchi;
}

QWidget* RiquadroFile::ImmagineAssociata() const {
  return associata_;
}

QList<QAbstractButton*> RiquadroFile::Pulsanti() const {
  return QList<QAbstractButton*>{apri_, mostraSempre_} + allegati_->Pulsanti();
}

void RiquadroFile::showEvent(QShowEvent* evento) {
  QWidget::showEvent(evento);
  if (!elencati_) Elenca();
}

void RiquadroFile::Elenca() {
  elencati_ = true;
  Riempi(*immagini_, finestre_.Sessione().CartellaImmagini());
  Riempi(*documenti_, finestre_.Sessione().CartellaDocumenti());
}

void RiquadroFile::Mostra() {
  MostraImmagine();
  const auto documento = warehouse::FileNella(finestre_.Sessione().CartellaDocumenti(),
                                              prodotti_.Record().Testo(kDocumento));
  apri_->setEnabled(!documento.empty());
  allegati_->Mostra();
}

void RiquadroFile::MostraImmagine() {
  const std::string nome = prodotti_.Record().Testo(kImmagine);
  const auto file = warehouse::FileNella(finestre_.Sessione().CartellaImmagini(), nome);
  anteprima_->Mostra(file, nome.empty()
                               ? tr("nessuna immagine associata")
                               : tr("%1\nnon è nella cartella delle immagini").arg(Qs(nome)));
  associata_->Mostra(file, {});
  associata_->setVisible(mostraSempre_->isChecked() && associata_->ConImmagine());
}

void RiquadroFile::Scegli(const char* campo, const QListWidget& elenco) {
  const auto* voce = elenco.currentItem();
  if (voce == nullptr || !prodotti_.Aperto() || prodotti_.SolaLettura()) return;
  const std::string nome = voce->text().toStdString();
  if (!warehouse::NomeFileAmmesso(finestre_.Sessione().Dialogo(), nome)) return;
  prodotti_.Record().Scrivi(campo, nome);
  emit Scelto();
}

void RiquadroFile::ApriDocumento() {
  auto& dialogo = finestre_.Sessione().Dialogo();
  const auto file = warehouse::FileNella(finestre_.Sessione().CartellaDocumenti(),
                                         prodotti_.Record().Testo(kDocumento));
  if (file.empty() || dialogo.ApriEsterno(file.string())) return;
  dialogo.Messaggio("il documento " + file.string() +
                        " non si apre: controllare che un programma lo sappia aprire",
                    Icona::Avviso);
}

}  // namespace fenalto::screens
