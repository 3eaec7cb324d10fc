// Checks of the files that the program has written.
#include "runner/Contesto.h"
#include "runner/FileScritti.h"

namespace fenalto::copione {
namespace {

bool Contiene(Contesto& contesto, const Comando& comando) {
  auto letto = LeggiTestoDi(contesto.FileDi(comando.Testo(0)));
  if (!letto) throw Fallimento(letto.Errore().messaggio);
  const QString cercato = Qs(comando.Testo(1));
  if (letto.Valore().contains(cercato)) return true;
  // A line break that is looked for stands for whichever the file has.
  QString righe = letto.Valore();
  righe.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return righe.contains(cercato);
}

}  // namespace

void VerificaContiene(Contesto& contesto, const Comando& comando) {
  if (Contiene(contesto, comando)) return;
  throw Fallimento("the file does not contain \"" + comando.Testo(1) + "\"");
}

void VerificaNonContiene(Contesto& contesto, const Comando& comando) {
  if (!Contiene(contesto, comando)) return;
  throw Fallimento("the file contains \"" + comando.Testo(1) + "\"");
}

void VerificaUguale(Contesto& contesto, const Comando& comando) {
  auto uno = LeggiByte(contesto.FileDi(comando.Testo(0)));
  if (!uno) throw Fallimento(uno.Errore().messaggio);
  auto altro = LeggiByte(contesto.FileDi(comando.Testo(1)));
  if (!altro) throw Fallimento(altro.Errore().messaggio);
  const auto& a = uno.Valore();
  const auto& b = altro.Valore();
  if (a == b) return;
  const auto comuni = std::min(a.size(), b.size());
  const auto diverso = std::mismatch(a.begin(), a.begin() + comuni, b.begin()).first - a.begin();
  throw Fallimento("the files differ from byte " + std::to_string(diverso + 1) + " on (" +
                   std::to_string(a.size()) + " and " + std::to_string(b.size()) + " bytes)");
}

}  // namespace fenalto::copione
