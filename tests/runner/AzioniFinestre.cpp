// Commands that open, close and change windows.
#include <QAction>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>

#include "runner/Contesto.h"
#include "runner/Eventi.h"
#include "screens/main/MappaMenu.h"

namespace fenalto::copione {
namespace {

struct VoceTrovata {
  QAction* azione = nullptr;
  QString percorso;  ///< captions of the menus above, parted by '|'
  QString voce;
  bool scelta = false;  ///< it and the menus above can be chosen
};

void RaccogliVoci(const QList<QAction*>& azioni, const QString& percorso, bool aperto,
                  QList<VoceTrovata>& voci) {
  for (auto* azione : azioni) {
    if (azione->isSeparator()) continue;
    const QString nome = SenzaMnemonica(azione->text());
    const bool scelta = aperto && azione->isEnabled() && azione->isVisible();
    if (azione->menu() == nullptr) {
      voci << VoceTrovata{azione, percorso, nome, scelta};
      continue;
    }
    RaccogliVoci(azione->menu()->actions(),
                 percorso.isEmpty() ? nome : percorso + QLatin1Char('|') + nome, scelta, voci);
  }
}

QList<VoceTrovata> VociDelMenu(screens::FinestraPrincipale& principale) {
  QList<VoceTrovata> voci;
  RaccogliVoci(principale.menuBar()->actions(), QString(), true, voci);
  return voci;
}

/// The menu's action behind an entry of the map.
QAction* AzioneDi(screens::FinestraPrincipale& principale, const screens::VoceMenu& voce) {
  for (const auto& trovata : VociDelMenu(principale)) {
    if (trovata.percorso == QString::fromUtf8(voce.percorso) &&
        trovata.voce == QString::fromUtf8(voce.voce)) {
      return trovata.azione;
    }
  }
  return nullptr;
}

/// Chooses the entry of a function as its menu does. False when the entry can't be chosen.
bool ApriDalMenu(Contesto& contesto, const QString& nome, int scheda) {
  const auto* voce = screens::VoceDi(nome, scheda);
  if (voce == nullptr) {
    throw Fallimento(QStringLiteral("no menu entry opens a window %1").arg(nome));
  }
  auto& principale = contesto.Principale();
  if (*voce->voce == '\0') {
    principale.ApriFunzione(nome, scheda);  // a window that only others open
    contesto.Attendi();
    return true;
  }
  auto* azione = AzioneDi(principale, *voce);
  if (azione == nullptr) {
    throw Fallimento(QStringLiteral("the menu has no entry \"%1\" of the window %2")
                         .arg(QString::fromUtf8(voce->voce), nome));
  }
  if (!azione->isEnabled() || !azione->isVisible()) return false;
  if (scheda >= 0 && voce->scheda != scheda) {
    principale.ApriFunzione(nome, scheda);  // a page that no entry of the menu stands for
  } else {
    azione->trigger();
  }
  contesto.Attendi();
  return true;
}

int SchedaDi(const Comando& comando) {
  return comando.parole.size() > 1 ? comando.Numero(1) : -1;
}

}  // namespace

void Apri(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  if (!ApriDalMenu(contesto, nome, SchedaDi(comando))) {
    throw Fallimento(QStringLiteral("the menu entry of %1 is disabled or hidden").arg(nome));
  }
  if (contesto.programma.HaChiestoFine()) return;
  contesto.scena.Aggiorna();
  if (auto* finestra = contesto.scena.PerNome(nome)) {
    contesto.scena.PortaAvanti(*finestra);
  } else if (!contesto.HaDetto()) {
    throw Fallimento(
        QStringLiteral("the window %1 did not come up, and nothing says why").arg(nome));
  }
}

void Rifiuta(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  if (!ApriDalMenu(contesto, nome, SchedaDi(comando))) return;
  contesto.scena.Aggiorna();
  if (contesto.scena.PerNome(nome) != nullptr) {
    throw Fallimento(QStringLiteral("the window %1 came up").arg(nome));
  }
}

void Menu(Contesto& contesto, const Comando& comando) {
  const QString testo = Qs(comando.Testo(0)).trimmed();
  const auto voci = VociDelMenu(contesto.Principale());
  QStringList possibili;
  bool spenta = false;
  for (const auto caso : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
    possibili.clear();
    for (const auto& voce : voci) {
      const bool uguale = voce.voce.compare(testo, caso) == 0;
      if (uguale && voce.scelta) {
        voce.azione->trigger();
        return;
      }
      if (uguale) spenta = true;
      if (voce.scelta) possibili << voce.voce;
    }
  }
  throw Fallimento(
      QStringLiteral("the menu entry \"%1\" %2; the enabled ones are: %3")
          .arg(testo,
               spenta ? QStringLiteral("is disabled or hidden") : QStringLiteral("does not exist"),
               possibili.join(QStringLiteral(", "))));
}

void PassaA(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  auto* finestra = contesto.scena.PerNome(nome);
  if (finestra == nullptr) {
    throw Fallimento(QStringLiteral("the window %1 is not open; open are: %2")
                         .arg(nome, contesto.scena.Aperte().join(QStringLiteral(", "))));
  }
  contesto.scena.PortaAvanti(*finestra);
}

void VerificaAperta(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  if (contesto.scena.PerNome(nome) != nullptr) return;
  throw Fallimento(QStringLiteral("the window %1 is not open; open are: %2")
                       .arg(nome, contesto.scena.Aperte().join(QStringLiteral(", "))));
}

void VerificaChiusa(Contesto& contesto, const Comando& comando) {
  if (contesto.scena.PerNome(Qs(comando.Testo(0))) == nullptr) return;
  throw Fallimento("the window " + comando.Testo(0) + " is open");
}

void Chiudi(Contesto& contesto, const Comando&) {
  auto& corrente = contesto.scena.Corrente();
  if (const auto* funzione = qobject_cast<screens::FinestraFunzione*>(&corrente)) {
    funzione->Cornice()->close();
  } else if (corrente.isWindow()) {
    corrente.close();
  } else {
    throw Fallimento(QStringLiteral("the window %1 has no title bar").arg(corrente.objectName()));
  }
}

void Anno(Contesto& contesto, const Comando& comando) {
  const int anno = comando.Numero(0);
  if (contesto.Principale().PassaAnno(anno)) return;
  contesto.Attendi();
  if (contesto.HaDetto()) return;
  QStringList anni;
  for (const int altro : contesto.Sessione().Anni()) anni << QString::number(altro);
  throw Fallimento(QStringLiteral("the year list has no %1 but: %2")
                       .arg(anno)
                       .arg(anni.join(QStringLiteral(", "))));
}

void VerificaTitolo(Contesto& contesto, const Comando& comando) {
  const QString titolo = contesto.scena.Corrente().windowTitle();
  if (titolo.contains(Qs(comando.Testo(0)))) return;
  throw Fallimento(
      QStringLiteral("the title is \"%1\", without \"%2\"").arg(titolo, Qs(comando.Testo(0))));
}

void Foto(Contesto& contesto, const Comando& comando) {
  const auto file = contesto.FileDi(comando.Testo(0));
  std::error_code errore;
  std::filesystem::create_directories(file.parent_path(), errore);
  if (!contesto.Principale().grab().save(Qs(file.string()), "PNG")) {
    throw Fallimento("the picture " + file.string() + " can't be written");
  }
}

}  // namespace fenalto::copione
