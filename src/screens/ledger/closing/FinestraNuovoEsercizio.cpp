#include "screens/ledger/closing/FinestraNuovoEsercizio.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "ledger/closing/EliminazioneAnno.h"
#include "ledger/closing/EliminazioneSelettiva.h"
#include "ledger/closing/NuovoEsercizio.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"
#include "screens/ledger/closing/PaginaDiForma.h"

namespace fenalto::screens {
namespace {

using records::Digitato;
using records::GenereCampo;
using records::Mostrato;

constexpr int kCifreAnno = 6;

/// The new year.
class PaginaNuovoAnno : public PaginaDiForma {
 public:
  explicit PaginaNuovoAnno(Finestre& finestre)
      : PaginaNuovoAnno(finestre, std::make_unique<ledger::NuovoEsercizio>(finestre.Sessione())) {}

 private:
  PaginaNuovoAnno(Finestre& finestre, std::unique_ptr<ledger::NuovoEsercizio> nuovo)
      : PaginaDiForma(finestre, nuovo->Dati()), nuovo_(std::move(nuovo)) {
    constexpr const char* kAnno = "FrameNuovoAnno";
    auto* colonna = new QVBoxLayout(this);
    auto* nota = new QLabel(
        QObject::tr("L'anno vecchio resta utilizzabile: ordini e scadenze non hanno anno e si "
                    "continuano sul nuovo. Creato l'anno, il programma si chiude."));
    nota->setWordWrap(true);
    colonna->addWidget(nota);
    auto* riquadri = new QVBoxLayout;
    colonna->addLayout(riquadri);
    colonna->addStretch(1);
    Compila({.campi = {Digitato("AnnoNuovo", "anno nuovo", kCifreAnno).In(kAnno),
                       Digitato("xEuro", "contabilità in euro").In(kAnno).Accanto(),
                       Mostrato("pConfermaNuovoAnno", GenereCampo::Pulsante, "Conferma nuovo anno")
                           .In(kAnno)},
             .riquadri = {{.nome = kAnno, .titolo = "Apertura nuovo anno", .largo = true}}},
            *riquadri);
    Premuto(
        "pConfermaNuovoAnno",
        [this] {
          if (!nuovo_->ConfermaNuovoAnno()) return false;
          Gestore().ChiediFine();
          return true;
        },
        [this] { return nuovo_->CampoRifiutato(); });
    Mostra();
  }
  std::unique_ptr<ledger::NuovoEsercizio> nuovo_;
};

records::DescrizioneForma FormaElimina() {
  constexpr const char* kArticoli = "FrameElimArticoli";
  constexpr const char* kSenzaAnno = "FrameElimScadenze";
  const auto scelta = [](const char* nome, const char* testo, const char* riquadro) {
    return Digitato(nome, testo).In(riquadro).AlMargine();
  };
  return {.campi = {Digitato("ElimDaDt", "dal").In(kArticoli),
                    Digitato("ElimAaDt", "al").In(kArticoli).Accanto(),
                    scelta("ElimPrimanota", "registrazioni di primanota", kArticoli),
                    scelta("ElimRegIva", "registrazioni IVA", kArticoli),
                    scelta("ElimDocumenti", "fatture, ddt e movimenti di magazzino", kArticoli),
                    Mostrato("pEliminaArticoli", GenereCampo::Pulsante, "Elimina registrazioni")
                        .In(kArticoli)
                        .AlMargine(),
                    scelta("ElimScadenze", "tutte le scadenze", kSenzaAnno),
                    scelta("ElimOrdiniCli", "tutti gli ordini dei clienti", kSenzaAnno),
                    scelta("ElimOrdiniFor", "tutti gli ordini ai fornitori", kSenzaAnno),
                    Mostrato("EliminaScadenze", GenereCampo::Pulsante, "Elimina scadenze e ordini")
                        .In(kSenzaAnno)
                        .AlMargine()},
          .riquadri = {{.nome = kArticoli,
                        .titolo = "Registrazioni e documenti dell'anno in uso",
                        .largo = true},
                       {.nome = kSenzaAnno, .titolo = "Archivi senza anno", .largo = true}}};
}

/// A year, or chosen registrations, erased.
class PaginaElimina : public PaginaDiForma {
 public:
  explicit PaginaElimina(Finestre& finestre)
      : PaginaElimina(finestre,
                      std::make_unique<ledger::EliminazioneSelettiva>(finestre.Sessione())) {}

 protected:
  [[nodiscard]] records::StatoCampo Stato(const std::string& campo) const override {
    return {.visibile = elimina_->Disponibile(campo)};
  }

 private:
  PaginaElimina(Finestre& finestre, std::unique_ptr<ledger::EliminazioneSelettiva> elimina)
      : PaginaDiForma(finestre, elimina->Dati()), elimina_(std::move(elimina)) {
    auto* colonna = new QVBoxLayout(this);
    colonna->addWidget(CreaAnno());
    auto* riquadri = new QVBoxLayout;
    colonna->addLayout(riquadri);
    colonna->addStretch(1);
    Compila(FormaElimina(), *riquadri);
    const auto rifiutato = [this] { return elimina_->CampoRifiutato(); };
    Premuto("pEliminaArticoli", [this] { return elimina_->EliminaArticoli(); }, rifiutato);
    Premuto("EliminaScadenze", [this] { return elimina_->EliminaScadenze(); }, rifiutato);
    Mostra();
  }

  QGroupBox* CreaAnno() {
    auto* riquadro = new QGroupBox(QObject::tr("Un anno intero"));
    anni_ = new QComboBox;
    anni_->setObjectName(QStringLiteral("AnnoDaEliminare"));
    auto* elimina = Pulsante(QStringLiteral("pEliminaAnno"), QObject::tr("Elimina anno"));
    auto* riga = new QHBoxLayout(riquadro);
    Affianca(*riga, QObject::tr("anno"), anni_);
    riga->addWidget(elimina);
    riga->addStretch(1);
    ElencaAnni();
    connect(elimina, &QPushButton::clicked, this,
            [this] { Esegui([this] { return EliminaAnno(); }, [] { return std::string(); }); });
    return riquadro;
  }

  void ElencaAnni() {
    anni_->clear();
    for (const int anno : Gestore().Sessione().Anni()) anni_->addItem(QString::number(anno));
    anni_->setCurrentText(QString::number(Gestore().Sessione().Anno()));
  }

  bool EliminaAnno() {
    if (!ledger::EliminaAnno(Gestore().Sessione(), anni_->currentText().toInt())) return false;
    if (const auto riletti = Gestore().Sessione().RileggiAnni(); !riletti) {
      Gestore().Sessione().Dialogo().Messaggio(riletti.Errore().messaggio, Icona::Errore);
    }
    ElencaAnni();
    Gestore().SessioneCambiata();
    return true;
  }

  std::unique_ptr<ledger::EliminazioneSelettiva> elimina_;
  QComboBox* anni_ = nullptr;
};

}  // namespace

FinestraNuovoEsercizio::FinestraNuovoEsercizio(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("NuovoEsercizio"), tr("Anni contabili"), finestre) {
  auto* schede = new QTabWidget;
  PreparaSchede(*schede, QStringLiteral("SSTab1"));
  schede->addTab(new PaginaNuovoAnno(finestre), tr("Apertura nuovo anno"));
  schede->addTab(new PaginaElimina(finestre), tr("Eliminazione registrazioni o anno"));
  auto* colonna = new QVBoxLayout(this);
  const int margine = Misura(Passo::Filo);
  colonna->setContentsMargins(margine, margine, margine, margine);
  colonna->addWidget(schede);
}

FinestraNuovoEsercizio::~FinestraNuovoEsercizio() {
  hide();  // nothing is read from its fields any more
}

}  // namespace fenalto::screens
