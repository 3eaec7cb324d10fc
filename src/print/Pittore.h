// Paints a page of a report: one routine for PDF, printer and preview, so that all three agree.
//
// The painter works in the page's own unit (hundredths of a millimetre): fonts are sized in it and
// laid out without hinting, so a line is as wide on the screen as on paper.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPageLayout>
#include <QRectF>
#include <QString>
#include <map>
#include <memory>
#include <string>

#include "core/reports/Pagina.h"

class QPainter;

namespace fenalto::print {

/// An inch in the page's unit.
inline constexpr double kPollice = 2540;

/// Where something stands on a page, and the link behind it.
[[nodiscard]] const Rinvio* RinvioDi(const reports::Elemento& elemento);
/// The layout of a device for a page of that format: size, orientation, no margins of the device's
/// own (the page's stand inside).
[[nodiscard]] QPageLayout Disposizione(const reports::FormatoPagina& formato);

class Pittore {
 public:
  /// `scala` is device units a hundredth of a millimetre; `totale` the number of pages, 0 while it
  /// isn't known yet.
  void Dipingi(QPainter& pittore, const reports::Pagina& pagina, double scala, int totale);

  /// The text of an element as it prints (cut at its width), empty for lines, boxes and images.
  [[nodiscard]] QString Testo(const reports::Elemento& elemento, int totale);
  /// Room of `quanti` characters of that text from `da` on.
  [[nodiscard]] QRectF Area(const reports::Elemento& elemento, int totale, int da, int quanti);
  /// Room of the whole text.
  [[nodiscard]] QRectF Area(const reports::Elemento& elemento, int totale);

 private:
  struct Tipo {
    explicit Tipo(const QFont& fonteUsata) : fonte(fonteUsata), misure(fonteUsata) {}
    QFont fonte;
    QFontMetricsF misure;
    double passo = 0;  ///< of a fixed face: advance of every character, 0 when they differ
  };
  /// A text as it is drawn, and where it begins.
  struct Posto {
    QString testo;
    double x = 0;
  };
  const Tipo& TipoDi(const reports::Carattere& carattere);
  const Tipo& TipoFisso(int passo, bool grassetto);
  Posto Disponi(const reports::Scritta& scritta, int totale);
  void Dipingi(QPainter& pittore, const reports::Scritta& scritta, int totale);
  void Dipingi(QPainter& pittore, const reports::RigaFissa& riga, int totale);
  static void Dipingi(QPainter& pittore, const reports::Tratto& tratto);
  static void Dipingi(QPainter& pittore, const reports::Riquadro& riquadro);
  void Dipingi(QPainter& pittore, const reports::Immagine& immagine);

  std::map<std::pair<std::string, int>, std::unique_ptr<Tipo>> tipi_;
  std::map<int, std::unique_ptr<Tipo>> fissi_;
  std::map<std::string, QImage> immagini_;
};

}  // namespace fenalto::print
