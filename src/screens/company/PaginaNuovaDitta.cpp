#include "screens/company/PaginaNuovaDitta.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "admin/companies/CreazioneDitta.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/Attesa.h"

namespace fenalto::screens {
namespace {

QString TestoOpzione(archives::SceltaDati scelta) {
  switch (scelta) {
    case archives::SceltaDati::Conti:
      return QObject::tr("Piano dei conti");
    case archives::SceltaDati::Clienti:
      return QObject::tr("Clienti e loro destinazioni");
    case archives::SceltaDati::Fornitori:
      return QObject::tr("Fornitori");
    case archives::SceltaDati::Cespiti:
      return QObject::tr("Cespiti");
    case archives::SceltaDati::Prodotti:
      return QObject::tr("Prodotti, con fornitori e listini");
    case archives::SceltaDati::Distinte:
      return QObject::tr("Distinte base");
    case archives::SceltaDati::OrdiniClienti:
      return QObject::tr("Ordini e offerte clienti");
    case archives::SceltaDati::OrdiniFornitori:
      return QObject::tr("Ordini fornitori");
    case archives::SceltaDati::Commesse:
      return QObject::tr("Commesse");
    case archives::SceltaDati::Nessuna:
      break;
  }
  return {};
}

QLabel* Spiegazione(const QString& testo) {
  auto* etichetta = new QLabel(testo);
  etichetta->setWordWrap(true);
  etichetta->setFont(Carattere(Grado::Nota));
  return etichetta;
}

}  // namespace

struct PaginaNuovaDitta::Interno {
  explicit Interno(PaginaNuovaDitta& paginaUsata);
  QGroupBox* CreaDati();
  QGroupBox* CreaOrigine();
  void NomeDigitato(const QString& testo);
  void MostraOpzioni();
  void Conferma();
  QCheckBox* Lega(const char* campo, const QString& testo);

  PaginaNuovaDitta& pagina;
  admin::CreazioneDitta caso;
  Legatura* legatura;
  CampoTesto* nome;
  QWidget* opzioni;
  QPushButton* crea;
};

PaginaNuovaDitta::Interno::Interno(PaginaNuovaDitta& paginaUsata)
    : pagina(paginaUsata),
      caso(paginaUsata.Sessione()),
      legatura(new Legatura([this]() -> fenalto::Scheda& { return caso.Dati(); },
                            paginaUsata.Sessione().Dialogo(), &paginaUsata)),
      nome(new CampoTesto(QStringLiteral("Ditta"), nullptr, 200)),
      opzioni(new QWidget),
      crea(Pulsante(QStringLiteral("CommandNuovaDitta"), tr("Crea la ditta"), tr("Ctrl+Invio"))) {
  constexpr int kLarga = 620;
  // No wider than is read at a glance.
  auto* contenuto = new QWidget;
  contenuto->setMaximumWidth(Cresciuta(kLarga));
  auto* dentro = new QVBoxLayout(contenuto);
  dentro->setContentsMargins(0, 0, 0, 0);
  dentro->addWidget(CreaDati());
  dentro->addWidget(CreaOrigine());
  auto* riga = new QHBoxLayout;
  riga->addWidget(contenuto, kLarga);
  riga->addStretch(1);
  auto* colonna = new QVBoxLayout(&pagina);
  colonna->addLayout(riga);
  colonna->addStretch(1);
  auto* pulsanti = new QHBoxLayout;
  pulsanti->addStretch(1);
  pulsanti->addWidget(crea);
  colonna->addLayout(pulsanti);
  connect(nome, &QLineEdit::textEdited, &pagina,
          [this](const QString& testo) { NomeDigitato(testo); });
  connect(crea, &QPushButton::clicked, &pagina, [this] { Conferma(); });
  AssegnaMnemoniche({crea});
  legatura->Mostra();
  MostraOpzioni();
}

QCheckBox* PaginaNuovaDitta::Interno::Lega(const char* campo, const QString& testo) {
  auto* casella = Casella(campo, testo);
  legatura->Lega(casella);
  return casella;
}

QGroupBox* PaginaNuovaDitta::Interno::CreaDati() {
  constexpr int kNome = 40;
  constexpr int kAnno = 6;
  auto* riquadro = new QGroupBox(tr("La nuova ditta"));
  auto* griglia = new QGridLayout(riquadro);
  auto* anno = new CampoNumero(QStringLiteral("Anno"));
  LargoCaratteri(nome, kNome);
  LargoCaratteri(anno, kAnno);
  legatura->Lega(nome);
  legatura->Lega(anno);
  griglia->addWidget(Didascalia(tr("Nome"), nome), 0, 0);
  griglia->addWidget(nome, 0, 1);
  griglia->addWidget(Spiegazione(tr("breve e senza simboli: è anche il nome della sua cartella. La "
                                    "ragione sociale intera si scrive poi in «Modifica "
                                    "impostazioni Ditta».")),
                     1, 1);
  griglia->addWidget(Didascalia(tr("Primo anno"), anno), 2, 0);
  auto* riga = new QHBoxLayout;
  riga->addWidget(anno);
  riga->addSpacing(Misura(Passo::Stacco));
  riga->addWidget(Lega("IvaTrimestrale", tr("IVA trimestrale")));
  riga->addStretch(1);
  griglia->addLayout(riga, 2, 1);
  griglia->setColumnStretch(1, 1);
  return riquadro;
}

QGroupBox* PaginaNuovaDitta::Interno::CreaOrigine() {
  auto* riquadro = new QGroupBox(tr("Da dove parte"));
  auto* colonna = new QVBoxLayout(riquadro);
  auto* copia =
      Lega("CopiaDitta", tr("Copia della ditta aperta, %1").arg(Qs(pagina.Sessione().Ditta())));
  connect(copia, &QCheckBox::toggled, &pagina, [this] { MostraOpzioni(); });
  colonna->addWidget(copia);
  colonna->addWidget(
      Spiegazione(tr("Senza spunta la ditta parte dal modello del programma: piano "
                     "dei conti, causali, codici e registri IVA, pagamenti.")));
  auto* dentro = new QVBoxLayout(opzioni);
  dentro->setContentsMargins(Misura(Passo::Ampio), 0, 0, 0);
  dentro->addWidget(
      new QLabel(tr("Della ditta aperta si tengono i codici e gli utenti; inoltre:")));
  for (const auto& opzione : caso.Opzioni()) {
    dentro->addWidget(Lega(opzione.campo, TestoOpzione(opzione.scelta)));
  }
  dentro->addWidget(
      Spiegazione(tr("Registrazioni, documenti, scadenze e memorie dell'IVA non si "
                     "copiano mai; la ditta aperta resta com'è.")));
  colonna->addWidget(opzioni);
  return riquadro;
}

void PaginaNuovaDitta::Interno::NomeDigitato(const QString& testo) {
  const int cursore = nome->cursorPosition();
  const QString semplice = Qs(caso.NomeDigitato(testo.toStdString()));
  if (semplice == testo) return;
  nome->setText(semplice);
  nome->setCursorPosition(cursore - static_cast<int>(testo.size() - semplice.size()));
}

void PaginaNuovaDitta::Interno::MostraOpzioni() {
  auto* copia = pagina.findChild<QCheckBox*>(QStringLiteral("CopiaDitta"));
  opzioni->setEnabled(copia->isChecked());
}

void PaginaNuovaDitta::Interno::Conferma() {
  if (!legatura->Raccogli()) return;
  const bool fatta = [this] {
    const Attesa attesa;
    return caso.Conferma();
  }();
  if (fatta) return pagina.Gestore().ChiediFine();
  legatura->Mostra();
  if (const auto& rifiutato = caso.CampoRifiutato(); !rifiutato.empty()) {
    pagina.findChild<QWidget*>(Qs(rifiutato))->setFocus(Qt::OtherFocusReason);
  }
}

PaginaNuovaDitta::PaginaNuovaDitta(Finestre& finestre)
    : PaginaDitta(Scheda::Nuova, finestre), interno_(std::make_unique<Interno>(*this)) {}

PaginaNuovaDitta::~PaginaNuovaDitta() = default;

bool PaginaNuovaDitta::InModifica() const {
  return interno_->caso.Modificata() || interno_->legatura->Pendente();
}

void PaginaNuovaDitta::Abbandona() {
  interno_->caso.Proponi();
  interno_->legatura->Mostra();
  interno_->MostraOpzioni();
}

}  // namespace fenalto::screens
