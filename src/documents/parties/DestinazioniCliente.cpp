#include "documents/parties/DestinazioniCliente.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::documents {

namespace {

constexpr const char* kTabella = "Destinazioni_R";

}  // namespace

bool HaPredefinita(const Scheda& cliente) {
  return std::any_of(kCampiPredefinita.begin(), kCampiPredefinita.end(),
                     [&](const char* campo) { return !Rifila(cliente.Testo(campo)).empty(); });
}

DestinazioniCliente::DestinazioniCliente() {
  riga_.Aggiungi("Posi", Tipo::Intero);
  for (const char* campo : kCampiDestinazione) riga_.Aggiungi(campo, Tipo::Testo);
}

void DestinazioniCliente::Leggi(Ambiente& ambiente, const std::string& cod) {
  Annulla();
  righe_.clear();
  modificate_ = false;
  if (cod.empty()) return;
  std::string sql = std::string("select * from ") + kTabella + " where ";
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(sql + sql::Criterio("COD", "=", cod) +
                                                   " order by POSI");
  for (; !rs.Eof(); rs.MoveNext()) {
    DestinazioneMerce letta;
    letta.posi = rs.Fields("POSI").Intero();
    for (std::size_t i = 0; i < letta.testi.size(); ++i) {
      letta.testi[i] = rs.Fields(kCampiDestinazione[i]).Testo();
    }
    righe_.push_back(std::move(letta));
  }
}

void DestinazioniCliente::Copiate() {
  Annulla();
  modificate_ = !righe_.empty();
}

void DestinazioniCliente::Mostra(const DestinazioneMerce& destinazione) {
  riga_.Svuota();
  riga_.Scrivi("Posi", destinazione.posi);
  for (std::size_t i = 0; i < destinazione.testi.size(); ++i) {
    riga_.Scrivi(kCampiDestinazione[i], destinazione.testi[i]);
  }
  riga_.Consolida();
  inRiga_ = true;
}

bool DestinazioniCliente::Nuova(archives::ContestoArchivio& cliente) {
  if (inRiga_) return false;
  if (HaPredefinita(cliente.scheda)) {
    cliente.ambiente.Dialogo().Messaggio(
        "per inserire nell'elenco destinazioni bisogna lasciare in bianco 'destinazione merce "
        "predefinita'",
        Icona::Avviso);
    return false;
  }
  DestinazioneMerce nuova;
  for (const DestinazioneMerce& riga : righe_) nuova.posi = std::max(nuova.posi, riga.posi);
  ++nuova.posi;
  posiPrima_ = 0;
  Mostra(nuova);
  return true;
}

bool DestinazioniCliente::Apri(std::int64_t posi) {
  const auto trovata = Trova(posi);
  if (inRiga_ || trovata == righe_.end()) return false;
  posiPrima_ = posi;
  Mostra(*trovata);
  return true;
}

bool DestinazioniCliente::Conferma(Dialoghi& dialogo) {
  if (!inRiga_) return false;
  DestinazioneMerce riga;
  riga.posi = riga_.Leggi("Posi").Intero();
  for (std::size_t i = 0; i < riga.testi.size(); ++i) {
    riga.testi[i] = std::string(Rifila(riga_.Testo(kCampiDestinazione[i])));
  }
  if (std::all_of(riga.testi.begin(), riga.testi.end(),
                  [](const std::string& testo) { return testo.empty(); })) {
    dialogo.Messaggio("la destinazione è in bianco: scriverne l'indirizzo, oppure abbandonarla",
                      Icona::Avviso);
    return false;
  }
  if (posiPrima_ != 0) {
    *Trova(posiPrima_) = std::move(riga);
  } else {
    righe_.push_back(std::move(riga));
  }
  modificate_ = true;
  Annulla();
  return true;
}

bool DestinazioniCliente::Elimina(Dialoghi& dialogo) {
  if (!inRiga_) return false;
  if (posiPrima_ != 0) {
    if (!dialogo.Conferma("Conferma eliminazione Destinazione ?")) return false;
    righe_.erase(Trova(posiPrima_));
    modificate_ = true;
  }
  Annulla();
  return true;
}

void DestinazioniCliente::Annulla() {
  inRiga_ = false;
  posiPrima_ = 0;
  riga_.Svuota();
}

void DestinazioniCliente::Scrivi(Ambiente& ambiente, const std::string& codicePrima,
                                 const std::string& codice) const {
  // Rows under the new code can only be what a deletion by another program left behind.
  if (!codicePrima.empty()) EliminaTutte(ambiente, codicePrima);
  EliminaTutte(ambiente, codice);
  for (const DestinazioneMerce& riga : righe_) {
    std::vector<Coppia> campi = {{"COD", codice}, {"POSI", riga.posi}};
    for (std::size_t i = 0; i < riga.testi.size(); ++i) {
      campi.emplace_back(kCampiDestinazione[i], riga.testi[i]);
    }
    ambiente.ArchivioDi("tessarc").Inserisci(kTabella, campi);
  }
}

void DestinazioniCliente::EliminaTutte(Ambiente& ambiente, const std::string& codice) {
  ambiente.ArchivioDi("tessarc").Esegui(std::string("delete * from ") + kTabella + " where " +
                                        sql::Criterio("COD", "=", codice));
}

std::vector<DestinazioneMerce>::iterator DestinazioniCliente::Trova(std::int64_t posi) {
  return std::find_if(righe_.begin(), righe_.end(),
                      [&](const DestinazioneMerce& riga) { return riga.posi == posi; });
}

}  // namespace fenalto::documents
