#include <utility>

#include "core/reports/FileAccanto.h"
#include "core/reports/Uscita.h"

namespace fenalto::reports {

struct UscitaTesto::Interno {
  explicit Interno(std::filesystem::path percorso) : file(std::move(percorso)) {}
  FileAccanto file;
  bool prima = true;
};

UscitaTesto::UscitaTesto(std::filesystem::path file)
    : interno_(std::make_unique<Interno>(std::move(file))) {}

UscitaTesto::~UscitaTesto() = default;

void UscitaTesto::Titolo(const std::string& /*titolo*/) {}

bool UscitaTesto::Aggiungi(Pagina pagina) {
  RisolviPagineTotali(pagina, 0);
  std::string testo;
  if (!std::exchange(interno_->prima, false)) testo += '\f';
  for (const Elemento& elemento : pagina.elementi) {
    if (const auto* riga = std::get_if<RigaFissa>(&elemento)) {
      testo += riga->testo;
      testo += '\n';
    }
  }
  return interno_->file.Scrivi(testo);
}

Esito<bool> UscitaTesto::Fine() {
  return interno_->file.Chiudi();
}

void UscitaTesto::Annulla() {
  interno_->file.Annulla();
}

}  // namespace fenalto::reports
