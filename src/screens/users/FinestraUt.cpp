#include "screens/users/FinestraUt.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "core/values/Testo.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

constexpr int kLunghezzaCodice = 20;
constexpr int kLunghezzaPassword = 128;

struct LivelloUtente {
  int livello;
  const char* testo;
};
constexpr LivelloUtente kLivelli[] = {
    {99, "tutte le funzioni"},
    {50, "tutto, tranne la contabilità"},
    {30, "solo movimenti di magazzino e ordini a fornitori"},
};

QLineEdit* CampoPassword(const char* nome) {
  auto* campo = new QLineEdit;
  campo->setObjectName(QString::fromLatin1(nome));
  campo->setEchoMode(QLineEdit::Password);
  campo->setMaxLength(kLunghezzaPassword);
  return campo;
}

}  // namespace

struct FinestraUt::Interno {
  Interno(FinestraUt& finestraUsata, Finestre& gestoreUsato);
  QWidget* CreaScelta();
  QWidget* CreaUtente();
  QGridLayout* DisponiUtente();
  void Collega();
  void Descrivi();
  void Apri();
  void Apri(const std::string& codice);
  void Mostra(const Utente& utente, bool esistente);
  void Conferma();
  void Elimina();
  void TornaAllaScelta();
  [[nodiscard]] Utente Digitato() const;
  [[nodiscard]] bool Modificato() const;
  void RileggiElenco();

  FinestraUt& finestra;
  Finestre& gestore;
  Utenti utenti;
  bool solaLettura;
  std::vector<Utente> elenco;
  Utente originale;           ///< as shown when it was opened
  std::string codiceAttuale;  ///< empty for a new user
  bool aperto = false;

  Griglia* griglia;
  CampoTesto* selettore;
  QLabel* descrizioneSelettore;
  QLabel* avviso;
  QPushButton* apri;
  QPushButton* nuovo;
  CampoTesto* cod;
  CampoTesto* descrizione;
  QComboBox* livello;
  QLabel* testoLivello;
  QLineEdit* password;
  QLineEdit* password2;
  QLabel* notaPassword;
  QPushButton* conferma;
  QPushButton* elimina;
  QPushButton* annulla;
};

FinestraUt::Interno::Interno(FinestraUt& finestraUsata, Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      utenti(gestoreUsato.Sessione()),
      solaLettura(!gestoreUsato.Sessione().HaDiritto(99)) {
  auto* scelta = CreaScelta();
  finestra.Disponi(scelta, tr("Utenti"), CreaUtente());
  finestra.TitoloRecord(tr("Utente"));
  Collega();
  AssegnaMnemoniche({apri, nuovo});
  AssegnaMnemoniche({conferma, elimina, annulla});
  RileggiElenco();
}

QWidget* FinestraUt::Interno::CreaScelta() {
  constexpr int kCaratteri = 16;
  auto* pagina = new QWidget;
  selettore = new CampoTesto(QStringLiteral("Rt1"), nullptr, kLunghezzaCodice);
  LargoCaratteri(selettore, kCaratteri);
  descrizioneSelettore = new EtichettaElisa;
  descrizioneSelettore->setObjectName(QStringLiteral("Rt1Descrizione"));
  descrizioneSelettore->setTextFormat(Qt::PlainText);
  apri = Pulsante(QStringLiteral("Apri"), tr("Apri"), tr("Invio nel codice"));
  nuovo = Pulsante(QStringLiteral("Nuovo"), tr("Nuovo utente"), tr("Ins"));
  auto* riga = new QHBoxLayout;
  Affianca(*riga, tr("Utente"), selettore);
  riga->addWidget(apri);
  riga->addWidget(descrizioneSelettore, 1);
  riga->addWidget(nuovo);
  griglia = new Griglia(QStringLiteral("GrigliaUtenti"), QStringLiteral("Ut"),
                        {{tr("Codice"), Tipo::Testo, 120, 2, QStringLiteral("Cod")},
                         {tr("Descrizione"), Tipo::Testo, 320},
                         {tr("Livello"), Tipo::Intero, 70}});
  avviso = new QLabel;
  avviso->setObjectName(QStringLiteral("AvvisoUtenti"));
  avviso->setWordWrap(true);
  auto* colonna = new QVBoxLayout(pagina);
  colonna->addLayout(riga);
  colonna->addWidget(griglia, 1);
  colonna->addWidget(avviso);
  return pagina;
}

QWidget* FinestraUt::Interno::CreaUtente() {
  auto* pagina = new QWidget;
  cod = new CampoTesto(QStringLiteral("Cod"), nullptr, kLunghezzaCodice);
  descrizione = new CampoTesto(QStringLiteral("Descrizione"), nullptr, 60);
  livello = new QComboBox;
  livello->setObjectName(QStringLiteral("Livello"));
  for (const auto& voce : kLivelli) livello->addItem(QString::number(voce.livello));
  testoLivello = new QLabel(QString::fromUtf8(kLivelli[0].testo));
  password = CampoPassword("Password");
  password2 = CampoPassword("Password2");
  notaPassword = new QLabel;
  conferma = Pulsante(QStringLiteral("Conferma"), tr("Conferma"), tr("Ctrl+Invio"));
  elimina = Pulsante(QStringLiteral("Elimina"), tr("Elimina"), tr("Ctrl+Canc"));
  annulla = Pulsante(QStringLiteral("Annulla"), tr("Annulla"), tr("Esc"));
  auto* pulsanti = new QHBoxLayout;
  pulsanti->addStretch(1);
  for (auto* pulsante : {conferma, elimina, annulla}) pulsanti->addWidget(pulsante);
  auto* colonna = new QVBoxLayout(pagina);
  colonna->addLayout(DisponiUtente());
  colonna->addStretch(1);
  colonna->addLayout(pulsanti);
  return pagina;
}

QGridLayout* FinestraUt::Interno::DisponiUtente() {
  constexpr int kCaratteriCodice = 22;
  constexpr int kCaratteriDescrizione = 50;
  for (QWidget* campo : std::initializer_list<QWidget*>{cod, password, password2}) {
    LargoCaratteri(campo, kCaratteriCodice);
  }
  LargoCaratteri(descrizione, kCaratteriDescrizione);
  auto* disposizione = new QGridLayout;
  disposizione->setHorizontalSpacing(Misura(Passo::Vicino));
  disposizione->addWidget(Didascalia(tr("Codice"), cod), 0, 0);
  disposizione->addWidget(cod, 0, 1);
  disposizione->addWidget(Didascalia(tr("Descrizione"), descrizione), 1, 0);
  disposizione->addWidget(descrizione, 1, 1, 1, 2);
  disposizione->addWidget(Didascalia(tr("Livello"), livello), 2, 0);
  auto* rigaLivello = new QHBoxLayout;
  rigaLivello->addWidget(livello);
  rigaLivello->addWidget(testoLivello, 1);
  disposizione->addLayout(rigaLivello, 2, 1, 1, 2);
  disposizione->addWidget(Didascalia(tr("Password"), password), 3, 0);
  disposizione->addWidget(password, 3, 1);
  disposizione->addWidget(notaPassword, 3, 2);
  disposizione->addWidget(Didascalia(tr("Di nuovo"), password2), 4, 0);
  disposizione->addWidget(password2, 4, 1);
  disposizione->setColumnStretch(2, 1);
  return disposizione;
}

void FinestraUt::Interno::Collega() {
  auto* f = &finestra;
  const auto daRiga = [this](int riga) { Apri(griglia->Modello().Riga(riga).front().Testo()); };
  connect(griglia, &Griglia::RigaDoppioClic, f, daRiga);
  connect(griglia, &Griglia::RigaInvio, f, daRiga);
  connect(selettore, &QLineEdit::textChanged, f, [this] { Descrivi(); });
  connect(apri, &QPushButton::clicked, f, [this] { Apri(); });
  connect(nuovo, &QPushButton::clicked, f, [this] { Mostra({}, false); });
  connect(conferma, &QPushButton::clicked, f, [this] { Conferma(); });
  connect(elimina, &QPushButton::clicked, f, [this] { Elimina(); });
  connect(annulla, &QPushButton::clicked, f, [this] { finestra.Lascia(); });
  connect(livello, &QComboBox::currentIndexChanged, f, [this](int indice) {
    testoLivello->setText(QString::fromUtf8(kLivelli[std::max(0, indice)].testo));
  });
}

void FinestraUt::Interno::RileggiElenco() {
  elenco = utenti.Elenco();
  std::vector<std::vector<Valore>> righe;
  for (const auto& utente : elenco) {
    righe.push_back({utente.cod, utente.descrizione, utente.livello});
  }
  griglia->Modello().Righe(std::move(righe));
  nuovo->setEnabled(!solaLettura);
  avviso->setText(
      solaLettura ? tr("Solo un utente di livello 99 può cambiare utenti e diritti.")
      : elenco.empty()
          ? tr("Non ci sono utenti: il programma si apre senza password e tutti possono "
               "tutto. Il primo utente deve essere di livello 99.")
          : QString());
  Descrivi();
}

void FinestraUt::Interno::Descrivi() {
  const std::string codice = selettore->text().trimmed().toStdString();
  const auto trovato = std::find_if(elenco.begin(), elenco.end(), [&](const Utente& utente) {
    return UgualeTesto(utente.cod, codice);
  });
  descrizioneSelettore->setText(codice.empty() ? QString()
                                : trovato == elenco.end()
                                    ? tr("codice non trovato")
                                    : QString::fromStdString(trovato->descrizione));
}

void FinestraUt::Interno::Apri() {
  Apri(selettore->text().trimmed().toStdString());
}

void FinestraUt::Interno::Apri(const std::string& codice) {
  const auto trovato = std::find_if(elenco.begin(), elenco.end(), [&](const Utente& utente) {
    return UgualeTesto(utente.cod, codice);
  });
  if (codice.empty() || trovato == elenco.end()) {
    selettore->setFocus();
    return;
  }
  Mostra(*trovato, true);
}

void FinestraUt::Interno::Mostra(const Utente& utente, bool esistente) {
  originale = utente;
  codiceAttuale = esistente ? utente.cod : std::string();
  cod->Mostra(Valore(utente.cod));
  descrizione->Mostra(Valore(utente.descrizione));
  const int indice = livello->findText(QString::number(utente.livello));
  livello->setCurrentIndex(std::max(0, indice));
  password->clear();
  password2->clear();
  notaPassword->setText(esistente ? tr("vuota: resta quella di adesso") : QString());
  for (QWidget* campo :
       std::initializer_list<QWidget*>{cod, descrizione, livello, password, password2, conferma}) {
    campo->setEnabled(!solaLettura);
  }
  elimina->setEnabled(!solaLettura && esistente);
  aperto = true;
  finestra.TitoloRecord(esistente ? tr("Utente %1").arg(QString::fromStdString(utente.cod))
                                  : tr("Nuovo utente"));
  finestra.GiraAlRecord();
  if (solaLettura) {
    annulla->setFocus();
  } else {
    (esistente ? descrizione : cod)->setFocus();
  }
}

Utente FinestraUt::Interno::Digitato() const {
  return {cod->text().trimmed().toStdString(), descrizione->text().trimmed().toStdString(),
          livello->currentText().toInt()};
}

bool FinestraUt::Interno::Modificato() const {
  const Utente adesso = Digitato();
  return adesso.cod != originale.cod || adesso.descrizione != originale.descrizione ||
         adesso.livello != originale.livello || !password->text().isEmpty() ||
         !password2->text().isEmpty();
}

void FinestraUt::Interno::Conferma() {
  auto& dialogo = gestore.Sessione().Dialogo();
  const Utente utente = Digitato();
  if (utente.cod.empty()) {
    dialogo.Messaggio("inserire un codice", Icona::Avviso);
    cod->setFocus();
    return;
  }
  if (password->text() != password2->text()) {
    dialogo.Messaggio("reinserire password", Icona::Avviso);
    password->clear();
    password2->clear();
    password->setFocus();
    return;
  }
  if (auto esito = utenti.Salva(codiceAttuale, utente, password->text().toStdString()); !esito) {
    dialogo.Messaggio(esito.Errore().messaggio, Icona::Avviso);
    cod->setFocus();
    return;
  }
  TornaAllaScelta();
}

void FinestraUt::Interno::Elimina() {
  auto& dialogo = gestore.Sessione().Dialogo();
  if (!dialogo.Conferma("Conferma eliminazione DOCUMENTO ?")) return;
  if (auto esito = utenti.Elimina(codiceAttuale); !esito) {
    dialogo.Messaggio(esito.Errore().messaggio, Icona::Avviso);
    return;
  }
  TornaAllaScelta();
}

void FinestraUt::Interno::TornaAllaScelta() {
  finestra.Abbandona();
  finestra.FocoScelta();
}

FinestraUt::FinestraUt(Finestre& finestre)
    : FinestraSceltaERecord(QStringLiteral("Ut"), tr("Impostazione utenti e diritti"), finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
  interno_->selettore->setFocus();
  if (!interno_->solaLettura) return;
  // Told once the window is there.
  QTimer::singleShot(0, this, [this] {
    Dialogo().Messaggio("solo un utente di livello 99 può cambiare utenti e diritti",
                        Icona::Avviso);
  });
}

FinestraUt::~FinestraUt() {
  TogliPagine();
}

bool FinestraUt::Aperta() const {
  return interno_->aperto;
}

bool FinestraUt::InModifica() const {
  return Aperta() && !interno_->solaLettura && interno_->Modificato();
}

void FinestraUt::ChiudiRecord() {
  interno_->aperto = false;
  TitoloRecord(tr("Utente"));
}

void FinestraUt::FocoScelta() {
  interno_->selettore->clear();
  interno_->RileggiElenco();
  interno_->selettore->setFocus();
}

void FinestraUt::Aggiorna() {
  if (!Aperta()) interno_->RileggiElenco();
}

}  // namespace fenalto::screens
