#include "documents/parties/DestinazioniCliente.h"

#include <algorithm>
#include <utility>

#include "core/records/RigheInTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::documents {

namespace {

constexpr const char* kTabella = "Destinazioni_R";

template <std::size_t... kIndici>
constexpr auto CampiDestinazione(std::index_sequence<kIndici...> /*indici*/) {
  return std::array{
      records::Campo<&DestinazioneMerce::posi>("Posi"),
      records::CampoElemento<&DestinazioneMerce::testi, kIndici>(kCampiDestinazione[kIndici])...};
}
constexpr auto kCampiRiga =
    CampiDestinazione(std::make_index_sequence<kCampiDestinazione.size()>());

}  // namespace

bool HaPredefinita(const Scheda& cliente) {
  return std::any_of(kCampiPredefinita.begin(), kCampiPredefinita.end(),
                     [&](const char* campo) { return !Rifila(cliente.Testo(campo)).empty(); });
}

DestinazioniCliente::DestinazioniCliente() : righe_(kCampiRiga) {}

void DestinazioniCliente::Leggi(Ambiente& ambiente, const std::string& cod) {
  std::vector<DestinazioneMerce> lette;
  if (!cod.empty()) {
    Rs rs = ambiente.ArchivioDi("tessarc").Recordset(std::string("select * from ") + kTabella +
                                                     " where " + sql::Criterio("COD", "=", cod) +
                                                     " order by POSI");
    for (; !rs.Eof(); rs.MoveNext()) lette.push_back(records::LeggiRiga(rs, righe_.Campi()));
  }
  righe_.Carica(std::move(lette));
}

void DestinazioniCliente::Copiate() {
  righe_.Annulla();
  righe_.Modificate(!Righe().empty());
}

bool DestinazioniCliente::Nuova(archives::ContestoArchivio& cliente) {
  if (InRiga()) return false;
  if (HaPredefinita(cliente.scheda)) {
    cliente.ambiente.Dialogo().Messaggio(
        "per inserire nell'elenco destinazioni bisogna lasciare in bianco 'destinazione merce "
        "predefinita'",
        Icona::Avviso);
    return false;
  }
  DestinazioneMerce nuova;
  nuova.posi = righe_.ProssimaPosi(1);
  righe_.Nuova(nuova);
  return true;
}

bool DestinazioniCliente::Apri(std::int64_t posi) {
  return !InRiga() && righe_.Apri(&DestinazioneMerce::posi, posi);
}

bool DestinazioniCliente::Conferma(Dialoghi& dialogo) {
  if (!InRiga()) return false;
  DestinazioneMerce riga = righe_.Digitata();
  for (std::string& testo : riga.testi) testo = std::string(Rifila(testo));
  if (std::all_of(riga.testi.begin(), riga.testi.end(),
                  [](const std::string& testo) { return testo.empty(); })) {
    dialogo.Messaggio("la destinazione è in bianco: scriverne l'indirizzo, oppure abbandonarla",
                      Icona::Avviso);
    return false;
  }
  righe_.Sostituisci(righe_.Con(std::move(riga)));
  return true;
}

bool DestinazioniCliente::Elimina(Dialoghi& dialogo) {
  if (!InRiga()) return false;
  if (RigaNuova()) {
    Annulla();
    return true;
  }
  if (!dialogo.Conferma("Conferma eliminazione Destinazione ?")) return false;
  righe_.Sostituisci(righe_.Senza());
  return true;
}

void DestinazioniCliente::Scrivi(Ambiente& ambiente, const std::string& codicePrima,
                                 const std::string& codice) const {
  // Rows under the new code can only be what a deletion by another program left behind.
  if (!codicePrima.empty()) EliminaTutte(ambiente, codicePrima);
  EliminaTutte(ambiente, codice);
  records::ScriviRighe(ambiente.ArchivioDi("tessarc"), kTabella, Righe(), righe_.Campi(),
                       {{"COD", codice}});
}

void DestinazioniCliente::EliminaTutte(Ambiente& ambiente, const std::string& codice) {
  records::EliminaRighe(ambiente.ArchivioDi("tessarc"), kTabella, {{"COD", codice}});
}

}  // namespace fenalto::documents
