#include "screens/start/PaginaIniziale.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"
#include "screens/start/Via.h"

namespace fenalto::screens {
namespace {

constexpr std::size_t kUltimi = 10;
constexpr int kContabilita = 99;

struct ViaGrande {
  const char* nome;
  const char* titolo;
  const char* sotto;
  const char* funzione;
  int livello;
};

constexpr ViaGrande kVie[] = {
    {"IniziaMovimenti", "Registrazioni", "primanota: tutto ciò che non ha l'IVA", "Movimenti",
     kContabilita},
    {"IniziaFatture", "Fatture IVA", "emesse, ricevute, corrispettivi", "Fatture", 0},
    {"IniziaDocumenti", "Documenti", "ddt, carichi, magazzino", "FattureCli", 30},
    {"IniziaPagamenti", "Pagamenti e incassi", "dalle scadenze alla registrazione",
     "PagamentiDaScadenzario", kContabilita},
};

}  // namespace

PaginaIniziale::PaginaIniziale(Finestre& finestre, QWidget* genitore)
    : QWidget(genitore), finestre_(finestre), ambiente_(finestre.Sessione()) {
  setObjectName(QStringLiteral("PaginaIniziale"));
  auto* colonna = new QVBoxLayout(this);
  const int intorno = Misura(Passo::Ampio);
  colonna->setContentsMargins(intorno, intorno, intorno, intorno);
  colonna->setSpacing(Misura(Passo::Gruppo));
  CreaTesta(*colonna);
  CreaVie(*colonna);
  CreaRiquadri(*colonna);
  colonna->addStretch(1);
  MostraSecondoDiritti();
}

bool PaginaIniziale::Aperta(const char* funzione, int livello) const {
  return ambiente_.HaDiritto(livello) &&
         finestre_.FunzioneDisponibile(QString::fromLatin1(funzione));
}

void PaginaIniziale::CreaTesta(QVBoxLayout& colonna) {
  auto* riga = new QHBoxLayout;
  auto* nomi = new QVBoxLayout;
  nomi->setSpacing(Misura(Passo::Filo));
  ditta_ = new QLabel(this);
  ditta_->setObjectName(QStringLiteral("IniziaDitta"));
  ditta_->setFont(Carattere(Grado::Insegna));
  chi_ = new QLabel(this);
  chi_->setObjectName(QStringLiteral("IniziaChi"));
  creaDitta_ = Pulsante(QStringLiteral("CreaTuaDitta"), tr("Crea la tua ditta"));
  creaDitta_->setParent(this);
  creaDitta_->setAutoDefault(true);
  creaDitta_->hide();
  connect(creaDitta_, &QPushButton::clicked, this,
          [this] { finestre_.Segui({.funzione = "Utility", .scheda = 0}); });
  nomi->addWidget(ditta_);
  nomi->addWidget(chi_);
  nomi->addWidget(creaDitta_, 0, Qt::AlignLeft);
  riga->addLayout(nomi, 1);
  angolo_ = new QVBoxLayout;
  riga->addLayout(angolo_);
  colonna.addLayout(riga);
}

void PaginaIniziale::MostraTesta() {
  const bool aperta = ambiente_.DittaAperta();
  ditta_->setText(aperta ? Qs(ambiente_.Ditta()) : QStringLiteral("Fenalto"));
  const bool prova = aperta && ambiente_.Ditta() == "Demo";
  QString chi = prova ? tr("una ditta di prova: si può sbagliare tutto") : QString();
  if (aperta && !prova) {
    chi =
        tr("anno %1, in %2").arg(ambiente_.Anno()).arg(ambiente_.Euro() ? tr("euro") : tr("lire"));
    const std::string& utente = ambiente_.UtenteCorrente().descrizione;
    if (!utente.empty()) chi += tr(" · buon lavoro, %1").arg(Qs(utente));
  }
  chi_->setText(chi);
  creaDitta_->setVisible(prova && Aperta("Utility", kContabilita));
}

void PaginaIniziale::CreaVie(QVBoxLayout& colonna) {
  auto* riga = new QHBoxLayout;
  riga->setSpacing(Misura(Passo::Gruppo));
  for (const ViaGrande& una : kVie) {
    auto* via = new Via(QString::fromLatin1(una.nome), Via::Aspetto::Grande, this);
    via->Mostra(QString::fromUtf8(una.titolo), QString::fromUtf8(una.sotto));
    vie_.push_back(via);
    const Rinvio rinvio{.funzione = una.funzione};
    connect(via, &Via::clicked, this, [this, rinvio] { finestre_.Segui(rinvio); });
    riga->addWidget(via, 1);
  }
  colonna.addLayout(riga);
}

Via* PaginaIniziale::CreaVia(const QString& nome, RiquadroPagina* riquadro, const Rinvio& rinvio) {
  auto* via = new Via(nome, Via::Aspetto::Riga, riquadro);
  riquadro->Aggiungi(via);
  connect(via, &Via::clicked, this, [this, rinvio] { finestre_.Segui(rinvio); });
  return via;
}

PaginaIniziale::Scadenze PaginaIniziale::CreaScadenze(const QString& titolo, const char* classe) {
  Scadenze scadenze;
  scadenze.riquadro = new RiquadroPagina(titolo, this);
  const QString fine = QString::fromLatin1(classe);
  Rinvio rinvio{.funzione = "SituazioneScadenze", .codice = classe, .classe = classe, .scheda = 0};
  scadenze.scadute = CreaVia(QStringLiteral("IniziaScadute") + fine, scadenze.riquadro, rinvio);
  rinvio.scheda = 1;
  scadenze.vicine = CreaVia(QStringLiteral("IniziaVicine") + fine, scadenze.riquadro, rinvio);
  scadenze.scadute->Mostra(tr("Scaduto"), tr("…"));
  scadenze.vicine->Mostra(tr("Prossimi 7 giorni"), tr("…"));
  return scadenze;
}

void PaginaIniziale::CreaRiquadri(QVBoxLayout& colonna) {
  clienti_ = CreaScadenze(tr("Da incassare dai clienti"), "C");
  fornitori_ = CreaScadenze(tr("Da pagare ai fornitori"), "F");
  iva_ = new RiquadroPagina(tr("La prossima IVA"), this);
  prossimaIva_ = CreaVia(QStringLiteral("IniziaIva"), iva_, {.funzione = "STRegistroIvaUnico"});
  prossimaIva_->Mostra(tr("…"), {});
  copie_ = new RiquadroPagina(tr("Copie di sicurezza"), this);
  copia_ = new Via(QStringLiteral("IniziaCopie"), Via::Aspetto::Riga, copie_);
  copia_->Mostra(tr("…"), {});
  copie_->Aggiungi(copia_);
  connect(copia_, &Via::clicked, this,
          [this] { emit Aiuto(QStringLiteral("23-copie-di-sicurezza.md")); });
  recenti_ = new RiquadroPagina(tr("Ultimi lavori"), this);
  for (std::size_t i = 0; i < kUltimi; ++i) {
    auto* via =
        new Via(QStringLiteral("IniziaRecente%1").arg(i + 1), Via::Aspetto::Minuta, recenti_);
    via->hide();
    recenti_->Aggiungi(via);
    connect(via, &Via::clicked, this, [this, i] {
      // Going there may make this list anew.
      const Rinvio rinvio = rinvii_.at(i);
      finestre_.Segui(rinvio);
    });
    ultimi_.push_back(via);
  }
  auto* griglia = new QGridLayout;
  griglia->setSpacing(Misura(Passo::Gruppo));
  griglia->addWidget(clienti_.riquadro, 0, 0);
  griglia->addWidget(fornitori_.riquadro, 0, 1);
  griglia->addWidget(iva_, 1, 0);
  griglia->addWidget(copie_, 1, 1);
  griglia->addWidget(recenti_, 0, 2, 2, 1);
  for (int i = 0; i < 3; ++i) griglia->setColumnStretch(i, i == 2 ? 4 : 3);
  colonna.addLayout(griglia);
}

void PaginaIniziale::MostraSecondoDiritti() {
  MostraTesta();
  for (std::size_t i = 0; i < vie_.size(); ++i) {
    vie_[i]->setVisible(Aperta(kVie[i].funzione, kVie[i].livello));
  }
  const bool scadenze = Aperta("SituazioneScadenze", kContabilita);
  clienti_.riquadro->setVisible(scadenze);
  fornitori_.riquadro->setVisible(scadenze);
  iva_->setVisible(Aperta("STRegistroIvaUnico", kContabilita));
}

void PaginaIniziale::Aggiorna() {
  MostraSecondoDiritti();
  daLeggere_ = true;
  update();
}

void PaginaIniziale::PrendiFoco() {
  for (auto* via : findChildren<Via*>()) {
    if (!via->isVisibleTo(this)) continue;
    via->setFocus(Qt::OtherFocusReason);
    return;
  }
}

void PaginaIniziale::paintEvent(QPaintEvent* /*evento*/) {
  if (!daLeggere_ || !ambiente_.DittaAperta()) return;
  daLeggere_ = false;
  passo_ = 0;
  if (inLettura_) return;
  inLettura_ = true;
  QTimer::singleShot(0, this, &PaginaIniziale::Passo);
}

}  // namespace fenalto::screens
