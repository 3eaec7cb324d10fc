#include "print/TestoPagina.h"

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <vector>

#include "print/Pittore.h"

namespace fenalto::print {
namespace {

bool HaSegno(const std::string& testo) {
  return testo.find(reports::kSegnoPagineTotali) != std::string::npos;
}

/// A text that is to be copied, and where it stands.
struct Brano {
  double y = 0;
  double x = 0;
  double altezza = 0;
  QString testo;
};

/// The columns of a fixed line that lie in the area, by more than half of each.
QString Colonne(const reports::RigaFissa& riga, const QString& testo, const QRectF& area) {
  if (area.isEmpty()) return testo;
  const double cella = kPollice / std::max(1, riga.passo);
  const auto caratteri = testo.toStdU32String();
  const auto fine = static_cast<long>(caratteri.size());
  const auto da = std::clamp(std::lround((area.left() - riga.x) / cella), 0L, fine);
  const auto a = std::clamp(std::lround((area.right() - riga.x) / cella), da, fine);
  return QString::fromUcs4(caratteri.data() + da, a - da);
}

QString Rifilata(QString riga) {
  while (!riga.isEmpty() && riga.back() == QLatin1Char(' ')) riga.chop(1);
  return riga;
}

}  // namespace

QString ConTotale(const std::string& testo, int totale) {
  QString uscita = QString::fromStdString(testo);
  if (!HaSegno(testo)) return uscita;
  const QString numero = totale > 0 ? QString::number(totale) : QStringLiteral("…");
  const QString segno = QString::fromUtf8(reports::kSegnoPagineTotali);
  for (auto posto = uscita.indexOf(segno); posto >= 0; posto = uscita.indexOf(segno)) {
    qsizetype tolti = 1;
    while (tolti < numero.size() && posto + tolti < uscita.size() &&
           uscita[posto + tolti] == QLatin1Char(' ')) {
      ++tolti;
    }
    uscita.replace(posto, tolti, numero);
  }
  return uscita;
}

bool AttendeTotale(const reports::Pagina& pagina) {
  return std::any_of(pagina.elementi.begin(), pagina.elementi.end(),
                     [](const reports::Elemento& elemento) {
                       if (const auto* scritta = std::get_if<reports::Scritta>(&elemento))
                         return HaSegno(scritta->testo);
                       if (const auto* riga = std::get_if<reports::RigaFissa>(&elemento))
                         return HaSegno(riga->testo);
                       return false;
                     });
}

QString TestoDi(Pittore& pittore, const reports::Pagina& pagina, int totale, const QRectF& area) {
  std::vector<Brano> brani;
  for (const auto& elemento : pagina.elementi) {
    const QString testo = pittore.Testo(elemento, totale);
    const auto* riga = std::get_if<reports::RigaFissa>(&elemento);
    if (testo.isEmpty() && riga == nullptr) continue;
    const QRectF posto = pittore.Area(elemento, totale);
    const double meta = posto.top() + posto.height() / 2;
    if (!area.isEmpty() && (meta < area.top() || meta > area.bottom())) continue;
    if (riga == nullptr && !area.isEmpty() && !posto.intersects(area)) continue;
    brani.push_back({posto.top(), posto.left(), posto.height(),
                     riga != nullptr ? Colonne(*riga, testo, area) : testo});
  }
  std::stable_sort(brani.begin(), brani.end(),
                   [](const Brano& a, const Brano& b) { return a.y < b.y; });
  QStringList righe;
  for (auto primo = brani.begin(); primo != brani.end();) {
    // Texts whose tops differ by less than half a line stand on the same one.
    const auto oltre = std::find_if(primo, brani.end(), [&](const Brano& uno) {
      return uno.y - primo->y >= primo->altezza / 2;
    });
    std::sort(primo, oltre, [](const Brano& a, const Brano& b) { return a.x < b.x; });
    QStringList celle;
    for (auto uno = primo; uno != oltre; ++uno) celle << uno->testo;
    righe << Rifilata(celle.join(QLatin1Char('\t')));
    primo = oltre;
  }
  return righe.join(QLatin1Char('\n'));
}

}  // namespace fenalto::print
