#include "core/records/DocumentoAperto.h"

#include <utility>

namespace fenalto::records {

Stato DocumentoAperto::StatoCorrente(bool inRiga) const {
  if (!aperto_) return Stato::Inattiva;
  return inRiga ? Stato::RigaAperta : Stato::Aperta;
}

void DocumentoAperto::Inizia() {
  testa_.Consolida();
  aperto_ = nuovo_ = true;
}

void DocumentoAperto::Mostra(Esito<Blocco, Detentore> blocco, std::string motivo) {
  testa_.Consolida();
  motivo_ = std::move(motivo);
  if (blocco && motivo_.empty()) blocco_ = std::move(blocco).Valore();
  aperto_ = true;
}

void DocumentoAperto::Chiudi() noexcept {
  aperto_ = nuovo_ = false;
  motivo_.clear();
  blocco_.Rilascia();
  testa_.Svuota();
}

bool DocumentoAperto::RifiutaSolaLettura() const {
  if (SolaLettura()) Avviso(motivo_ + ": si può solo consultare");
  return SolaLettura();
}

bool DocumentoAperto::RifiutaRiga(bool inRiga) const {
  if (inRiga) Avviso("confermare o annullare prima la riga");
  return inRiga;
}

bool DocumentoAperto::Rifiuta(const std::optional<Rifiuto>& rifiuto, std::string* campo) const {
  if (!rifiuto) return false;
  if (!rifiuto->messaggio.empty()) Avviso(rifiuto->messaggio);
  if (campo != nullptr) *campo = rifiuto->campo;
  return true;
}

void DocumentoAperto::Avviso(const std::string& testo) const {
  ambiente_.Dialogo().Messaggio(testo, Icona::Avviso);
}

}  // namespace fenalto::records
