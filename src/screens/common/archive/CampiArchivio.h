// The controls of an archive's record page, built from its description: the code, the description,
// the described fields with their legends and notes, frames.
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/archives/DescrizioneArchivio.h"
#include "core/sql/Catalogo.h"

class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QVBoxLayout;
class QWidget;

namespace fenalto::screens {

class CampoCodice;
class Legatura;

class CampiArchivio : public QObject {
  Q_OBJECT

 public:
  /// Where the frames of a page go; the empty name is the first page.
  using Pagine = std::function<QVBoxLayout&(const std::string& nome)>;

  /// Builds the controls into their pages and binds them.
  CampiArchivio(Ambiente& ambiente, const archives::DescrizioneArchivio& descrizione,
                Legatura& legatura, const Pagine& pagine);
  /// Shows each field and frame as `stato` says; none can be typed in when `solaLettura`.
  void Applica(const std::function<archives::StatoCampo(const std::string&)>& stato,
               bool solaLettura);
  /// Looks the descriptions of codes up again.
  void Rileggi();
  /// Gives the focus to a field, or to the first that can be typed in when `nome` is empty or
  /// unknown. False when no field took it.
  bool DaiFoco(const QString& nome);
  /// Makes the focus go through the fields as they stand on the page.
  void OrdinaFoco();

 private:
  /// A field with what stands around it, shown and hidden together.
  struct Voce {
    std::string nome;
    QWidget* controllo = nullptr;
    std::vector<QWidget*> contorno;
  };
  /// Where the next field of a frame (or of the page itself) goes.
  struct Griglia {
    std::string nome;
    QGroupBox* riquadro = nullptr;
    QGridLayout* disposizione = nullptr;
    int righe = 0;
    QHBoxLayout* linea = nullptr;  ///< of the last field, where one beside it goes
  };

  [[nodiscard]] std::vector<archives::CampoArchivio> Campi() const;
  [[nodiscard]] Tipo TipoDi(const std::string& campo) const;
  Griglia& GrigliaDi(const std::string& riquadro);
  void Aggiungi(const archives::CampoArchivio& campo);
  /// Puts a field with its surroundings on a line of its grid.
  void Disponi(const archives::CampoArchivio& campo, Griglia& griglia, Voce& voce);
  QWidget* Crea(const archives::CampoArchivio& campo, Tipo tipo);
  QWidget* CreaTipizzato(const archives::CampoArchivio& campo, Tipo tipo);
  QWidget* CreaCodice(const archives::CampoArchivio& campo);
  void DisponiRiquadri(const Pagine& pagine);

  Ambiente& ambiente_;
  const archives::DescrizioneArchivio& descrizione_;
  Legatura& legatura_;
  const sql::TabellaCatalogo& tabella_;
  std::vector<std::unique_ptr<Griglia>> griglie_;
  std::vector<Voce> voci_;
  std::vector<CampoCodice*> codici_;
};

}  // namespace fenalto::screens
