// The search of the main window: what it finds, and when that is read.
#include <QAction>
#include <QTimer>

#include "overview/VociDellaDitta.h"
#include "screens/main/CercaFunzione.h"
#include "screens/main/FinestraPrincipale.h"

namespace fenalto::screens {
namespace {

constexpr std::size_t kRecenti = 8;

/// "Scadenzario > Registrazioni" of a path of the menu map.
std::string PercorsoScritto(const VoceMenu& voce) {
  QString percorso = QString::fromUtf8(voce.percorso);
  percorso.replace(QLatin1Char('|'), QStringLiteral(" > "));
  return percorso.toStdString();
}

}  // namespace

void FinestraPrincipale::CercaFunzioni() {
  using overview::IndiceVoci;
  const bool aperta = ambiente_.DittaAperta();
  std::vector<overview::Voce> voci;
  if (aperta) voci = overview::LeggiVociRecenti(ambiente_, kRecenti);
  for (const auto& voce : MappaMenu()) {
    const auto* azione = azioni_.at(&voce);
    if (!azione->isEnabled() || !azione->isVisible()) continue;
    if (!ambiente_.HaDiritto(voce.livello)) continue;
    voci.push_back({.genere = overview::GenereVoce::Funzione,
                    .nome = voce.voce,
                    .codice = {},
                    .percorso = PercorsoScritto(voce),
                    .sinonimi = SinonimiDi(voce),
                    .rinvio = RinvioDi(voce)});
  }
  indice_->Imposta(IndiceVoci::Parte::Sessione, std::move(voci));
  const std::string di =
      aperta ? ambiente_.Ditta() + "|" + ambiente_.UtenteCorrente().cod : std::string();
  if (di != indiceDi_) indice_->Imposta(IndiceVoci::Parte::Ditta, {});
  indiceDi_ = di;
  auto* riquadro =
      CercaFunzione::Apri(this, indice_, [this](const Rinvio& rinvio) { Segui(rinvio); });
  if (!aperta) return;
  // The box stands at once, with what was found the last time; the archives are read behind it.
  QTimer::singleShot(0, riquadro, [this, riquadro] {
    if (!ambiente_.DittaAperta()) return;
    indice_->Imposta(IndiceVoci::Parte::Ditta, overview::LeggiVociDitta(ambiente_));
    riquadro->Filtra();
  });
}

}  // namespace fenalto::screens
