// How controls look and how far they stand apart: the toolkit's plain style with this program's
// lines, focus ring, boxes and icons.
#pragma once

#include <QProxyStyle>

namespace fenalto::screens {

class Stile : public QProxyStyle {
  Q_OBJECT

 public:
  Stile();

  [[nodiscard]] int pixelMetric(PixelMetric misura, const QStyleOption* opzione,
                                const QWidget* controllo) const override;
  [[nodiscard]] int styleHint(StyleHint quale, const QStyleOption* opzione,
                              const QWidget* controllo, QStyleHintReturn* dati) const override;
  void drawPrimitive(PrimitiveElement elemento, const QStyleOption* opzione, QPainter* pittore,
                     const QWidget* controllo) const override;
  void drawControl(ControlElement elemento, const QStyleOption* opzione, QPainter* pittore,
                   const QWidget* controllo) const override;
  void drawComplexControl(ComplexControl elemento, const QStyleOptionComplex* opzione,
                          QPainter* pittore, const QWidget* controllo) const override;
  [[nodiscard]] QSize sizeFromContents(ContentsType tipo, const QStyleOption* opzione,
                                       const QSize& contenuto,
                                       const QWidget* controllo) const override;
  void polish(QWidget* controllo) override;
  using QProxyStyle::polish;
};

/// Program's style and palette: of the system's tone, light or dark, or of the one that the
/// environment asks for (FENALTO_TONO=chiaro or scuro).
void VestiProgramma();

}  // namespace fenalto::screens
