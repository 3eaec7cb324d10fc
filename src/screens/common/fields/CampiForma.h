// The controls of a form, built from its description: fields with their captions, legends and
// notes, frames.
#pragma once

#include <QList>
#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/records/DescrizioneForma.h"
#include "core/session/Ambiente.h"

class QAbstractButton;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QVBoxLayout;
class QWidget;

namespace fenalto::screens {

class CampoCodice;
class Legatura;
class ParteRara;

class CampiForma : public QObject {
  Q_OBJECT

 public:
  /// Where the frames of a page go; the empty name is the first page.
  using Pagine = std::function<QVBoxLayout&(const std::string& nome)>;
  using Stato = std::function<records::StatoCampo(const std::string& nome)>;

  /// Builds the controls into their pages and binds each to the first of the records that has its
  /// field; one that none has is refused by std::runtime_error, unless it is a label or a button.
  CampiForma(Ambiente& ambiente, records::DescrizioneForma forma, QList<Legatura*> legature,
             const Pagine& pagine);
  /// The same on one page.
  CampiForma(Ambiente& ambiente, records::DescrizioneForma forma, QList<Legatura*> legature,
             QVBoxLayout& pagina);

  /// Shows each field and frame as `stato` says; none can be typed in when `solaLettura`.
  void Applica(const Stato& stato, bool solaLettura);
  /// Whether some frame is shown.
  [[nodiscard]] bool ConRiquadri() const;
  /// Looks the descriptions of codes up again.
  void Rileggi();
  /// Gives the focus to a field, or to the first that can be typed in when `nome` is empty or
  /// unknown. False when no field took it.
  bool DaiFoco(const QString& nome);
  /// Makes the focus go through the fields as they stand on the page, by their turns.
  void OrdinaFoco();
  /// The controls that the focus goes through in a turn, as they stand.
  [[nodiscard]] QList<QWidget*> Ordine(int turno = 0) const;
  /// A control by its name; throws std::out_of_range on an unknown one.
  [[nodiscard]] QWidget& Controllo(const std::string& nome) const;
  [[nodiscard]] CampoCodice& Codice(const std::string& nome) const;
  [[nodiscard]] QAbstractButton& Pulsante(const std::string& nome) const;
  /// The line that a field stands on, for what a window adds to it.
  [[nodiscard]] QHBoxLayout& Linea(const std::string& nome) const;
  /// Whether leaving a field counts: it was typed in, or passing through it is enough.
  [[nodiscard]] bool Conta(const QString& campo, bool cambiato) const;

 private:
  /// Where the next field of a frame (or of the page itself) goes.
  struct Griglia {
    records::RiquadroForma descritta;
    QWidget* riquadro = nullptr;
    QGridLayout* disposizione = nullptr;
    ParteRara* rara = nullptr;     ///< what a switch folds
    QVBoxLayout* sopra = nullptr;  ///< where that switch stands
    int righe = 0;
    int ultima = -1;               ///< pair of the grid that was filled last in the last row
    int colonna = 1;               ///< column of the last line
    QHBoxLayout* linea = nullptr;  ///< of the last field, where one beside it goes
    bool tesa = false;             ///< something in that line takes the room left
    std::vector<int> pesi;         ///< of the columns
  };
  /// A field with what stands around it, shown and hidden together.
  struct Voce {
    records::CampoForma campo;
    QWidget* controllo = nullptr;
    Griglia* griglia = nullptr;
    QHBoxLayout* linea = nullptr;
    QLabel* didascalia = nullptr;
    std::vector<QWidget*> contorno = {};
  };

  [[nodiscard]] const Voce& Trova(const std::string& nome) const;
  Griglia& GrigliaDi(const std::string& riquadro);
  void Aggiungi(const records::CampoForma& campo);
  /// Binding of the record that has the field; null for what is none's.
  [[nodiscard]] Legatura* LegaturaDi(const records::CampoForma& campo) const;
  void Disponi(Voce& voce);
  /// The switch of a rare frame: it stands over what it folds.
  bool DisponiInterruttore(Voce& voce);
  /// The line that the field goes to; a new one stands in the grid.
  QHBoxLayout& LineaPer(const Voce& voce, Qt::Alignment lato);
  void Contorna(Voce& voce, const QString& testo);
  void TerminaGriglia(Griglia& griglia);
  void DisponiRiquadri(const Pagine& pagine);
  void Applica(Voce& voce, const records::StatoCampo& stato, bool solaLettura);

  Ambiente& ambiente_;
  records::DescrizioneForma forma_;
  QList<Legatura*> legature_;
  std::vector<std::unique_ptr<Griglia>> griglie_;
  std::vector<Voce> voci_;
};

}  // namespace fenalto::screens
