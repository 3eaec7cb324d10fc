// One page on the screen: zoom, marks of what was searched, a rectangle to choose text with.
#pragma once

#include <QAbstractScrollArea>
#include <vector>

#include "print/Pittore.h"
#include "print/RicercaPagina.h"

namespace fenalto::print {

/// What a step of zoom multiplies by.
inline constexpr double kPassoZoom = 1.2;

class VistaPagina : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit VistaPagina(Pittore& pittore, QWidget* genitore = nullptr);

  void Mostra(reports::Pagina pagina, int totale);
  [[nodiscard]] const reports::Pagina& PaginaMostrata() const { return pagina_; }
  /// Marks runs of text; `corrente` is the one looked at (-1 none), brought into sight.
  void Segna(std::vector<Segno> segni, int corrente);
  [[nodiscard]] const std::vector<Segno>& Segni() const { return segni_; }
  [[nodiscard]] int SegnoCorrente() const { return corrente_; }

  /// 1 is the paper's own size.
  void Ingrandisci(double zoom);
  /// Follows the width of the window until a zoom is chosen.
  void AdattaLarghezza();
  [[nodiscard]] double Zoom() const;
  [[nodiscard]] bool Adattata() const { return adatta_; }
  /// Scrolls to the page's top, or to its end.
  void MostraInizio(bool inizio);
  /// Text under the chosen rectangle, of the whole page without one.
  [[nodiscard]] QString TestoScelto() const;
  /// The page has been on the screen.
  [[nodiscard]] bool Dipinta() const { return dipinta_; }
  /// Where a point of the page is on the viewport.
  [[nodiscard]] QPointF SulVetro(const QPointF& punto) const;

 signals:
  void RinvioScelto(const fenalto::Rinvio& rinvio);
  /// The wheel or a key asked for the page after (1) or before (-1).
  void PaginaOltre(int verso);
  void ZoomCambiato();

 protected:
  void paintEvent(QPaintEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;
  void mousePressEvent(QMouseEvent* evento) override;
  void mouseMoveEvent(QMouseEvent* evento) override;
  void mouseReleaseEvent(QMouseEvent* evento) override;
  void mouseDoubleClickEvent(QMouseEvent* evento) override;
  void wheelEvent(QWheelEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;

 private:
  [[nodiscard]] double Scala() const;
  [[nodiscard]] QPointF Origine() const;
  [[nodiscard]] QPointF SullaPagina(const QPointF& punto) const;
  [[nodiscard]] const reports::Elemento* ElementoIn(const QPointF& punto) const;
  void Scorrimento();
  void MostraSegno();

  Pittore& pittore_;
  reports::Pagina pagina_;
  int totale_ = 0;
  std::vector<Segno> segni_;
  int corrente_ = -1;
  double zoom_ = 1;
  bool adatta_ = true;
  bool dipinta_ = false;
  QPointF presa_;
  QRectF scelta_;  ///< on the page
};

}  // namespace fenalto::print
