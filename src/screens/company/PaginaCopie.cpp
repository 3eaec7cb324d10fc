#include "screens/company/PaginaCopie.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <optional>

#include "core/session/CopiaIntera.h"
#include "core/session/CopieDitta.h"
#include "core/session/RipristinoDitta.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/Attesa.h"
#include "screens/common/windows/InCorso.h"

namespace fenalto::screens {
namespace {

/// The column behind those shown: which copy the row is.
constexpr std::size_t kQuale = 5;

/// To a tenth, rounded up: nothing is smaller.
Importo Megabyte(std::uintmax_t byte) {
  constexpr std::uintmax_t kMega = std::uintmax_t{1} << 20U;
  const auto decimi = static_cast<std::int64_t>((byte * 10 + kMega - 1) / kMega);
  return Importo::DaDecimillesimi(decimi * (Importo::kScala / 10));
}

}  // namespace

struct PaginaCopie::Interno {
  Interno(PaginaCopie& paginaUsata, Finestre& gestoreUsato);
  QVBoxLayout* CreaPulsanti();
  QPushButton* Pulsante(const char* nome, const QString& testo, const QString& aiuto,
                        const std::function<void()>& lavoro);
  /// Does `lavoro` with the copy of the current row, told when there is none.
  void ConLaCopia(const std::function<void(CopiaDitta&)>& lavoro);
  void Rileggi();
  void AbilitaPulsanti();
  void Verifica(CopiaDitta& copia);
  void NellaDitta(const CopiaDitta& copia);
  void ApriAltra();
  [[nodiscard]] CopiaDitta* Corrente();

  PaginaCopie& pagina;
  Finestre& gestore;
  std::vector<CopiaDitta> copie;
  /// One of another folder, listed first until the page is left.
  std::optional<CopiaDitta> altra;
  Griglia* griglia;
  QLabel* stato;
  QList<QAbstractButton*> pulsanti;
  QList<QAbstractButton*> dellaRiga;  ///< that need a copy
  bool alLavoro = false;
};

PaginaCopie::Interno::Interno(PaginaCopie& paginaUsata, Finestre& gestoreUsato)
    : pagina(paginaUsata),
      gestore(gestoreUsato),
      griglia(new Griglia(QStringLiteral("GrigliaCopie"), QStringLiteral("Utility"),
                          {{tr("Data"), Tipo::Data, 90},
                           {tr("Ora"), Tipo::Testo, 60},
                           {tr("MB"), Tipo::Importo, 80, 1, QStringLiteral("Dimensione")},
                           {tr("Motivo"), Tipo::Testo, 320},
                           {tr("Verificata"), Tipo::Testo, 190}})),
      stato(new EtichettaElisa) {
  stato->setObjectName(QStringLiteral("StatoCopie"));
  stato->setTextFormat(Qt::PlainText);
  griglia->QuandoVuota(
      tr("Nessuna copia: la prima copia giornaliera si fa all'avvio.\n"
         "«Copia adesso» ne fa una intera in un'altra cartella."));
  auto* sinistra = new QVBoxLayout;
  sinistra->addWidget(griglia, 1);
  sinistra->addWidget(stato);
  auto* riga = new QHBoxLayout(&pagina);
  riga->addLayout(sinistra, 1);
  riga->addLayout(CreaPulsanti());
  connect(griglia, &Griglia::RigaScelta, &pagina, [this] { AbilitaPulsanti(); });
  AssegnaMnemoniche(pulsanti);
  Rileggi();
}

QPushButton* PaginaCopie::Interno::Pulsante(const char* nome, const QString& testo,
                                            const QString& aiuto,
                                            const std::function<void()>& lavoro) {
  auto* pulsante = screens::Pulsante(QString::fromLatin1(nome), testo);
  pulsante->setToolTip(aiuto);
  connect(pulsante, &QPushButton::clicked, &pagina, [this, lavoro] {
    if (alLavoro) return;
    const InCorso segno(alLavoro);
    lavoro();
    Rileggi();
  });
  pulsanti << pulsante;
  return pulsante;
}

QVBoxLayout* PaginaCopie::Interno::CreaPulsanti() {
  const auto conLaCopia = [this](const std::function<void(CopiaDitta&)>& lavoro) {
    return [this, lavoro] { ConLaCopia(lavoro); };
  };
  auto* colonna = new QVBoxLayout;
  colonna->addWidget(
      Pulsante("CopiaAdesso", tr("Copia adesso..."),
               tr("archivi, impostazioni, immagini e documenti in un'altra cartella"),
               [this] { CopiaAdesso(gestore.Sessione()); }));
  colonna->addSpacing(Misura(Passo::Stacco));
  dellaRiga << Pulsante("RipristinaCopia", tr("Torna a questa copia..."),
                        tr("rimette gli archivi della copia al posto di quelli della ditta"),
                        conLaCopia([this](CopiaDitta& copia) { NellaDitta(copia); }))
            << Pulsante("RipristinaNuova", tr("In una ditta nuova..."),
                        tr("fa dalla copia una ditta accanto, per guardarla prima"),
                        conLaCopia([this](CopiaDitta& copia) {
                          RipristinaInNuova(gestore.Sessione(), copia);
                        }))
            << Pulsante("VerificaCopia", tr("Verifica"), tr("guarda se la copia è ancora buona"),
                        conLaCopia([this](CopiaDitta& copia) { Verifica(copia); }))
            << Pulsante("EliminaCopia", tr("Elimina copia"), tr("cancella la copia dal disco"),
                        conLaCopia([this](CopiaDitta& copia) {
                          EliminaCopia(gestore.Sessione(), copia);
                        }));
  for (auto* pulsante : dellaRiga) colonna->addWidget(pulsante);
  colonna->addSpacing(Misura(Passo::Stacco));
  colonna->addWidget(Pulsante("AltraCopia", tr("Da un'altra cartella..."),
                              tr("mette nell'elenco una copia che sta altrove"),
                              [this] { ApriAltra(); }));
  colonna->addStretch(1);
  return colonna;
}

CopiaDitta* PaginaCopie::Interno::Corrente() {
  const int riga = griglia->RigaCorrente();
  if (riga < 0) return nullptr;
  return &copie.at(static_cast<std::size_t>(griglia->Modello().Riga(riga)[kQuale].Intero()));
}

void PaginaCopie::Interno::ConLaCopia(const std::function<void(CopiaDitta&)>& lavoro) {
  if (auto* copia = Corrente()) return lavoro(*copia);
  gestore.Sessione().Dialogo().Messaggio("scegliere una copia nell'elenco", Icona::Avviso);
}

void PaginaCopie::Interno::Rileggi() {
  const auto* corrente = Corrente();
  const auto tenuta = corrente != nullptr ? corrente->cartella : std::filesystem::path();
  copie = ElencoCopie(gestore.Sessione());
  if (altra) copie.insert(copie.begin(), *altra);
  std::vector<std::vector<Valore>> righe;
  int scelta = copie.empty() ? -1 : 0;
  std::uintmax_t byte = 0;
  for (std::size_t i = 0; i < copie.size(); ++i) {
    const CopiaDitta& copia = copie[i];
    const bool fuori = altra && i == 0;
    righe.push_back({copia.data, copia.ora, Megabyte(copia.byte),
                     fuori ? copia.motivo + ", «" + copia.cartella.string() + "»" : copia.motivo,
                     copia.TestoVerifica(), static_cast<std::int64_t>(i)});
    if (copia.cartella == tenuta) scelta = static_cast<int>(i);
    if (!fuori) byte += copia.byte;
  }
  griglia->Modello().Righe(std::move(righe));
  if (scelta >= 0) griglia->VaiARiga(scelta);
  stato->setText(tr("%1, in tutto %2, in «%3»")
                     .arg(copie.size() == 1 ? tr("1 copia") : tr("%1 copie").arg(copie.size()),
                          Qs(ScriviByte(byte)), Qs(CartellaCopie(gestore.Sessione()).string())));
  AbilitaPulsanti();
}

void PaginaCopie::Interno::AbilitaPulsanti() {
  const auto* copia = Corrente();
  for (auto* pulsante : dellaRiga) pulsante->setEnabled(copia != nullptr);
  const bool fuori = copia != nullptr && altra && copia->cartella == altra->cartella;
  if (fuori) dellaRiga.back()->setEnabled(false);
}

void PaginaCopie::Interno::Verifica(CopiaDitta& copia) {
  Dialoghi& dialogo = gestore.Sessione().Dialogo();
  const auto esito = [&] {
    const Attesa attesa;
    return VerificaDella(gestore.Sessione(), copia);
  }();
  if (altra && altra->cartella == copia.cartella) altra = copia;
  esito ? dialogo.Annuncia("la copia " + copia.Descrizione() + " è buona")
        : dialogo.Messaggio(esito.Errore().messaggio, Icona::Errore);
}

void PaginaCopie::Interno::NellaDitta(const CopiaDitta& copia) {
  if (RipristinaNellaDitta(gestore.Sessione(), copia)) gestore.SessioneCambiata();
}

void PaginaCopie::Interno::ApriAltra() {
  Dialoghi& dialogo = gestore.Sessione().Dialogo();
  const auto cartella = dialogo.ScegliFile("Cartella della copia", ModoFile::Cartella, "");
  if (!cartella) return;
  auto letta = LeggiCopia(gestore.Sessione(), *cartella);
  if (!letta) return dialogo.Messaggio(letta.Errore().messaggio, Icona::Avviso);
  altra = std::move(letta).Valore();
  griglia->VaiARiga(-1);
  griglia->clearSelection();
  Rileggi();
  griglia->VaiARiga(0);
  AbilitaPulsanti();
}

PaginaCopie::PaginaCopie(Finestre& finestre)
    : PaginaDitta(Scheda::Copie, finestre), interno_(std::make_unique<Interno>(*this, finestre)) {}

PaginaCopie::~PaginaCopie() = default;

void PaginaCopie::Aggiorna() {
  interno_->Rileggi();
}

}  // namespace fenalto::screens
