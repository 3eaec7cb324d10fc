// Checks of what controls show and whether they can be used.
#include <QAction>

#include "runner/Campi.h"
#include "runner/Contesto.h"

namespace fenalto::copione {
namespace {

bool SiUsa(const QWidget& controllo) {
  return controllo.isEnabled() && !SolaLettura(controllo);
}

/// A menu entry that bears the name, when no control does.
QAction* SoloVoce(const Ricerca& ricerca, const QString& nome) {
  return ricerca.Tutti(nome).isEmpty() ? ricerca.VoceMenu(nome) : nullptr;
}

bool Mostrato(const Ricerca& ricerca, const QString& nome) {
  if (const auto* voce = SoloVoce(ricerca, nome)) return voce->isVisible();
  const auto tutti = ricerca.Tutti(nome);
  if (tutti.isEmpty()) ricerca.Fallisci(nome, QStringLiteral("is no control"));
  return std::any_of(tutti.begin(), tutti.end(),
                     [&](const QWidget* w) { return w->isVisible() || ricerca.Girabile(*w); });
}

}  // namespace

void VerificaTesto(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  const auto ricerca = contesto.Cerca();
  std::optional<QString> testo;
  if (const auto* voce = SoloVoce(ricerca, nome)) {
    testo = SenzaMnemonica(voce->text());
  } else {
    auto& controllo = ricerca.Guarda(nome);
    testo = TestoDi(controllo);
    if (!testo) {
      if (const auto* campo = CampoDentro(controllo)) testo = TestoDi(*campo);
    }
  }
  if (!testo) ricerca.Fallisci(nome, QStringLiteral("shows no text"));
  if (*testo == Qs(comando.Testo(1)).trimmed()) return;
  throw Fallimento(
      QStringLiteral("\"%1\" shows \"%2\", not \"%3\"").arg(nome, *testo, Qs(comando.Testo(1))));
}

void VerificaAttivo(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  const auto ricerca = contesto.Cerca();
  if (const auto* voce = SoloVoce(ricerca, nome)) {
    if (voce->isEnabled() && voce->isVisible()) return;
    ricerca.Fallisci(nome, QStringLiteral("is a menu entry that can't be chosen"));
  }
  const auto& controllo = ricerca.Guarda(nome);
  if (!controllo.isEnabled()) throw Fallimento("\"" + comando.Testo(0) + "\" is disabled");
  if (SolaLettura(controllo)) throw Fallimento("\"" + comando.Testo(0) + "\" is read-only");
}

void VerificaSpento(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  const auto ricerca = contesto.Cerca();
  if (const auto* voce = SoloVoce(ricerca, nome)) {
    if (!voce->isEnabled()) return;
  } else {
    // What is disabled stays so on a page that isn't in front or can't be turned to.
    const auto tutti = ricerca.Tutti(nome);
    if (!tutti.isEmpty() &&
        std::none_of(tutti.begin(), tutti.end(), [](const QWidget* w) { return SiUsa(*w); })) {
      return;
    }
    if (!SiUsa(ricerca.Guarda(nome))) return;
  }
  throw Fallimento("\"" + comando.Testo(0) + "\" can be used");
}

void VerificaVisibile(Contesto& contesto, const Comando& comando) {
  if (!Mostrato(contesto.Cerca(), Qs(comando.Testo(0)))) {
    throw Fallimento("\"" + comando.Testo(0) + "\" is hidden");
  }
}

void VerificaNascosto(Contesto& contesto, const Comando& comando) {
  if (Mostrato(contesto.Cerca(), Qs(comando.Testo(0)))) {
    throw Fallimento("\"" + comando.Testo(0) + "\" is shown");
  }
}

}  // namespace fenalto::copione
