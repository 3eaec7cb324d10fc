#include "screens/company/PaginaUtilita.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "admin/repairs/FileTemporanei.h"
#include "admin/repairs/PagineNumerate.h"
#include "admin/repairs/Riparazioni.h"
#include "core/records/CampoRiga.h"
#include "core/session/CompattaDitta.h"
#include "core/session/Utenti.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/OpzioniGrafiche.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/InCorso.h"

namespace fenalto::screens {
namespace {

using admin::SceltaPagine;

constexpr const char* kAnnoLiquidazioni = "AnnoLiquidazioni";
constexpr records::CampoRiga<SceltaPagine> kPagine[] = {
    records::Campo<&SceltaPagine::intestazione>("Intestazione"),
    records::Campo<&SceltaPagine::annoPag>("AnnoPag"),
    records::Campo<&SceltaPagine::daPag>("DaPag"), records::Campo<&SceltaPagine::aaPag>("AaPag")};

QLineEdit* CampoPassword(const char* nome) {
  constexpr int kLunghezza = 128;
  constexpr int kCaratteri = 22;
  auto* campo = new QLineEdit;
  campo->setObjectName(QString::fromLatin1(nome));
  campo->setEchoMode(QLineEdit::Password);
  campo->setMaxLength(kLunghezza);
  LargoCaratteri(campo, kCaratteri);
  return campo;
}

QLabel* NotaAccanto(const QString& testo) {
  auto* etichetta = new EtichettaElisa;
  etichetta->setTextFormat(Qt::PlainText);
  etichetta->setText(testo);
  return etichetta;
}

}  // namespace

struct PaginaUtilita::Interno {
  Interno(PaginaUtilita& paginaUsata, Finestre& gestoreUsato);
  QGroupBox* CreaRiparazioni();
  QGroupBox* CreaPassword();
  QGroupBox* CreaPagine();
  CampoNumero* Numero(const char* nome);
  /// A button that does `lavoro`, one at a time, once what is typed could be read.
  QPushButton* Pulsante(const char* nome, const QString& testo,
                        const std::function<void()>& lavoro);
  void Compatta();
  void CambiaPassword();
  void StampaPagine();
  void MostraCartelle();

  PaginaUtilita& pagina;
  Finestre& gestore;
  fenalto::Scheda scheda;
  Legatura* legatura;
  OpzioniGrafiche* opzioni = nullptr;
  QList<QAbstractButton*> pulsanti;
  QLabel* temp = nullptr;
  QLineEdit* vecchia = nullptr;
  QLineEdit* nuova = nullptr;
  QLineEdit* ripetuta = nullptr;
  bool alLavoro = false;
};

PaginaUtilita::Interno::Interno(PaginaUtilita& paginaUsata, Finestre& gestoreUsato)
    : pagina(paginaUsata),
      gestore(gestoreUsato),
      legatura(new Legatura([this]() -> fenalto::Scheda& { return scheda; },
                            gestoreUsato.Sessione().Dialogo(), &paginaUsata)) {
  Ambiente& sessione = gestore.Sessione();
  records::AggiungiCampi<SceltaPagine>(scheda, kPagine);
  records::MostraCampi<SceltaPagine>(scheda, kPagine,
                                     admin::PagineNumerate(sessione, gestore.Uscite()).Proposta());
  scheda.Aggiungi(kAnnoLiquidazioni, Tipo::Intero);
  scheda.Scrivi(kAnnoLiquidazioni, sessione.Anno());
  auto* colonna = new QVBoxLayout(&pagina);
  colonna->addWidget(CreaRiparazioni());
  auto* sotto = new QHBoxLayout;
  sotto->addWidget(CreaPassword());
  sotto->addWidget(CreaPagine(), 1);
  colonna->addLayout(sotto);
  colonna->addStretch(1);
  AssegnaMnemoniche(pulsanti);
  legatura->Mostra();
  MostraCartelle();
}

QPushButton* PaginaUtilita::Interno::Pulsante(const char* nome, const QString& testo,
                                              const std::function<void()>& lavoro) {
  auto* pulsante = screens::Pulsante(QString::fromLatin1(nome), testo);
  connect(pulsante, &QPushButton::clicked, &pagina, [this, lavoro] {
    if (alLavoro || !legatura->Raccogli()) return;
    const InCorso segno(alLavoro);
    lavoro();
  });
  pulsanti << pulsante;
  return pulsante;
}

CampoNumero* PaginaUtilita::Interno::Numero(const char* nome) {
  constexpr int kCifre = 6;
  auto* campo = new CampoNumero(QString::fromLatin1(nome));
  LargoCaratteri(campo, kCifre);
  legatura->Lega(campo);
  return campo;
}

QGroupBox* PaginaUtilita::Interno::CreaRiparazioni() {
  auto* riquadro = new QGroupBox(tr("Archivi della ditta"));
  auto* griglia = new QGridLayout(riquadro);
  const auto aggiungi = [griglia](QPushButton* pulsante, QWidget* accanto) {
    const int riga = griglia->rowCount();
    griglia->addWidget(pulsante, riga, 0);
    griglia->addWidget(accanto, riga, 1);
  };
  const auto ripara = [this](bool (admin::Riparazioni::*quale)()) {
    return [this, quale] { (admin::Riparazioni(gestore.Sessione()).*quale)(); };
  };
  aggiungi(Pulsante("CommandCompattamento", tr("Compatta gli archivi"), [this] { Compatta(); }),
           NotaAccanto(tr("toglie lo spazio lasciato da ciò che è stato cancellato")));
  aggiungi(Pulsante("AggiornaDiversi", tr("Aggiorna conti «DIVERSI»"),
                    ripara(&admin::Riparazioni::AggiornaDiversi)),
           NotaAccanto(tr("rimette in testa ai movimenti non IVA i conti delle loro righe")));
  aggiungi(Pulsante("OK2", tr("Ricostruisci elenco conti"),
                    ripara(&admin::Riparazioni::RifaiContiClientiFornitori)),
           NotaAccanto(tr("rifà l'elenco di conti, clienti e fornitori dai loro archivi")));
  auto* anno = Numero(kAnnoLiquidazioni);
  auto* linea = new QWidget;
  auto* riga = new QHBoxLayout(linea);
  riga->setContentsMargins(0, 0, 0, 0);
  Affianca(*riga, tr("dell'anno"), anno);
  riga->addWidget(
      NotaAccanto(tr("il registro IVA e le liquidazioni si potranno ristampare in definitiva")), 1);
  aggiungi(Pulsante("Command3", tr("Elimina liquidazioni IVA"),
                    [this] {
                      admin::Riparazioni(gestore.Sessione())
                          .EliminaLiquidazioni(
                              static_cast<int>(scheda.Leggi(kAnnoLiquidazioni).Intero()));
                    }),
           linea);
  temp = NotaAccanto({});
  temp->setObjectName(QStringLiteral("Temp"));
  aggiungi(Pulsante("Command2", tr("Elimina file temporanei"),
                    [this] { admin::EliminaTemporanei(gestore.Sessione()); }),
           temp);
  griglia->setColumnStretch(1, 1);
  return riquadro;
}

QGroupBox* PaginaUtilita::Interno::CreaPassword() {
  auto* riquadro = new QGroupBox(tr("Password di chi è entrato"));
  auto* griglia = new QGridLayout(riquadro);
  vecchia = CampoPassword("VecchiaPassword");
  nuova = CampoPassword("NuovaPassword");
  ripetuta = CampoPassword("NuovaPassword2");
  int riga = 0;
  for (const auto& [testo, campo] :
       {std::pair{tr("Vecchia"), vecchia}, std::pair{tr("Nuova"), nuova},
        std::pair{tr("Di nuovo"), ripetuta}}) {
    griglia->addWidget(Didascalia(testo, campo), riga, 0);
    griglia->addWidget(campo, riga++, 1);
  }
  griglia->addWidget(Pulsante("Command1", tr("Cambia password"), [this] { CambiaPassword(); }),
                     riga, 1);
  griglia->setRowStretch(riga + 1, 1);
  return riquadro;
}

QGroupBox* PaginaUtilita::Interno::CreaPagine() {
  constexpr int kLunghezza = 100;
  auto* riquadro = new QGroupBox(tr("Pagine numerate in bianco per i registri"));
  auto* colonna = new QVBoxLayout(riquadro);
  auto* intestazione = new CampoTesto(QStringLiteral("Intestazione"), nullptr, kLunghezza);
  intestazione->setPlaceholderText(QString::fromUtf8(admin::PagineNumerate::kInvito));
  intestazione->setAccessibleName(tr("Intestazione"));
  legatura->Lega(intestazione);
  auto* numeri = new QHBoxLayout;
  Affianca(*numeri, tr("anno"), Numero("AnnoPag"));
  Affianca(*numeri, tr("dalla pagina"), Numero("DaPag"));
  Affianca(*numeri, tr("alla pagina"), Numero("AaPag"));
  numeri->addStretch(1);
  opzioni = new OpzioniGrafiche(QStringLiteral("Utility"), gestore.Sessione(), scheda, *legatura);
  auto* piede = new QHBoxLayout;
  piede->addLayout(opzioni->Riga(), 1);
  piede->addWidget(
      Pulsante("ConfermaStampa", tr("Stampa pagine numerate"), [this] { StampaPagine(); }));
  colonna->addWidget(intestazione);
  colonna->addLayout(numeri);
  colonna->addLayout(piede);
  colonna->addStretch(1);
  return riquadro;
}

void PaginaUtilita::Interno::Compatta() {
  if (CompattaDitta(gestore.Sessione())) gestore.SessioneCambiata();
}

void PaginaUtilita::Interno::CambiaPassword() {
  Dialoghi& dialogo = gestore.Sessione().Dialogo();
  const auto cambiata =
      Utenti(gestore.Sessione())
          .CambiaPassword(vecchia->text().toStdString(), nuova->text().toStdString(),
                          ripetuta->text().toStdString());
  if (cambiata) {
    for (auto* campo : {vecchia, nuova, ripetuta}) campo->clear();
    dialogo.Annuncia("password modificata");
    return;
  }
  const std::string& perche = cambiata.Errore().messaggio;
  dialogo.Messaggio(perche, Icona::Avviso);
  auto* errato = perche == "vecchia password errata" ? vecchia : nuova;
  errato->setFocus(Qt::OtherFocusReason);
  errato->selectAll();
}

void PaginaUtilita::Interno::StampaPagine() {
  auto scelta = records::LeggiCampi<SceltaPagine>(scheda, kPagine);
  opzioni->Prendi(scelta);
  admin::PagineNumerate pagine(gestore.Sessione(), gestore.Uscite());
  if (pagine.Stampa(scelta) || pagine.CampoRifiutato().empty()) return;
  pagina.findChild<QWidget*>(Qs(pagine.CampoRifiutato()))->setFocus(Qt::OtherFocusReason);
}

void PaginaUtilita::Interno::MostraCartelle() {
  temp->setText(tr("file di lavoro in «%1» e nella cartella della ditta, copie interrotte")
                    .arg(Qs(admin::CartellaTemporanea().string())));
}

PaginaUtilita::PaginaUtilita(Finestre& finestre)
    : PaginaDitta(Scheda::Utilita, finestre),
      interno_(std::make_unique<Interno>(*this, finestre)) {}

PaginaUtilita::~PaginaUtilita() = default;

void PaginaUtilita::Aggiorna() {
  interno_->MostraCartelle();
}

}  // namespace fenalto::screens
