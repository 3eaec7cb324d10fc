// What stands in a FinestraArchivio: the two sides, the buttons, and what each of them does.
#pragma once

#include <QList>
#include <map>
#include <memory>
#include <string>

#include "screens/common/archive/FinestraArchivio.h"
#include "screens/common/archive/PaginaSceltaArchivio.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Legatura.h"

class QAbstractButton;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QSplitter;
class QTabWidget;
class QVBoxLayout;

namespace fenalto::screens {

struct FinestraArchivio::Interno {
  Interno(FinestraArchivio& finestraUsata, Finestre& gestoreUsato,
          archives::DescrizioneArchivio descrizione);

  // --- The parts -------------------------------------------------------------------------------
  void Disponi();
  QWidget* CreaScelta();
  QWidget* CreaRecord();
  /// A page of the record with its scroll area; frames and a derived window's own go into
  /// `colonna`.
  QWidget* CreaPagina(QVBoxLayout*& colonna);
  QWidget* CreaBarra();
  void CreaPropri();
  void Collega();
  void CollegaScelta();
  void OrdinaFoco();
  void Divisione();

  // --- What the user does ----------------------------------------------------------------------
  /// Gives an open record up before another comes, after the question about its changes; false
  /// when it stays.
  bool LasciaPrecedente();
  /// A code was chosen on the left, with or without a record open.
  void Scegli(const QString& codice);
  void Apri(const QString& codice);
  void Comincia();
  void Sdoppia();
  /// The same from the code in the selector.
  void SdoppiaDaScelta();
  void Vicino(bool dopo);
  /// Confirms what is changed before another record comes; false when it was refused.
  bool ConfermaAperto();
  void Conferma();
  void Elimina();
  void Stampa();
  void Esegui(const archives::PulsanteArchivio& pulsante);
  void CampoLasciato(const QString& campo, bool cambiato);
  /// Gives the record up, after the question about its changes.
  void Lascia();

  // --- What it shows ---------------------------------------------------------------------------
  void MostraAperto();
  void MostraStato();
  void MostraTitolo();
  void MostraRighe(const std::vector<std::string>& righe);
  void Avvisa(const QString& testo);
  void DaiFoco(const QString& campo);
  /// Closes the record on the screen: nothing that is typed is read any more.
  void Spegni();
  void TornaAllaScelta();

  FinestraArchivio& finestra;
  Finestre& gestore;
  archives::ArchivioCodici archivio;
  Scheda vuota;  ///< shown while nothing is open
  std::unique_ptr<Legatura> legami;
  std::unique_ptr<CampiForma> campi;

  QSplitter* divisione = nullptr;
  QTabWidget* scelta = nullptr;  ///< SSTab1
  QTabWidget* schede = nullptr;  ///< SSTab2
  QString daRendere;             ///< confirmed or chosen, for a field that has opened the archive
  QWidget* lato = nullptr;       ///< SSTab2 with its notice and buttons
  PaginaSceltaArchivio* pagina = nullptr;
  QVBoxLayout* paginaRecord = nullptr;
  std::map<std::string, QVBoxLayout*> altrePagine;  ///< described pages by name
  QLabel* avviso = nullptr;
  QPlainTextEdit* riquadro = nullptr;
  QWidget* barra = nullptr;
  QPushButton* conferma = nullptr;
  QPushButton* elimina = nullptr;
  QPushButton* sdoppia = nullptr;
  QPushButton* sdoppiaDa = nullptr;  ///< beside the selector, where the archive has one
  QPushButton* precedente = nullptr;
  QPushButton* successivo = nullptr;
  QPushButton* annulla = nullptr;
  QList<QAbstractButton*> propri;       ///< the description's own that work on the record
  QList<QAbstractButton*> disponibili;  ///< those of them whose function there is
};

}  // namespace fenalto::screens
