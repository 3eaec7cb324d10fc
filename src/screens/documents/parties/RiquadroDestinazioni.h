// The list of a customer's goods destinations, and the fields of the one that is open.
#pragma once

#include <functional>

#include "documents/parties/DestinazioniCliente.h"
#include "screens/common/rows/RigheDelRecord.h"

namespace fenalto::screens {

class RiquadroDestinazioni : public RigheDelRecord {
  Q_OBJECT

 public:
  /// What the list asks of the customer's window.
  struct Cliente {
    std::function<archives::ContestoArchivio&()> cliente;
    /// Takes what is typed in the customer's fields; false when it can't be read (told).
    std::function<bool()> raccogli;
    /// A row was opened or left.
    std::function<void()> rigaCambiata;
  };

  RiquadroDestinazioni(documents::DestinazioniCliente& destinazioni, Cliente cliente,
                       Finestre& finestre, QWidget* genitore = nullptr);

 protected:
  [[nodiscard]] bool InRiga() const override { return destinazioni_.InRiga(); }
  [[nodiscard]] bool RigaNuova() const override { return destinazioni_.RigaNuova(); }
  [[nodiscard]] Scheda& Riga() const override { return destinazioni_.Riga(); }
  [[nodiscard]] std::vector<std::vector<Valore>> Elenco() const override;
  bool ApriRiga(const Valore& chiave) override;
  bool NuovaRiga() override;
  bool ConfermaRiga(QString& campo) override;
  bool EliminaRiga() override;
  void AnnullaRiga() override { destinazioni_.Annulla(); }
  void RigaCambiata() override { cliente_.rigaCambiata(); }

 private:
  void CreaCampi();
  void Disponi();

  documents::DestinazioniCliente& destinazioni_;
  Cliente cliente_;
};

}  // namespace fenalto::screens
