// The draft of a registration that isn't confirmed, and how it is gone on with.
#include <charconv>

#include "vat/entry/RegistrazioneIvaInterno.h"

namespace fenalto::vat {
namespace {

constexpr const char* kProposte = "proposte";
constexpr const char* kDescrizioneProposta = "descrizioneProposta";
constexpr const char* kPagamentoProposto = "pagamentoProposto";
constexpr const char* kDtFatProposta = "dtFatProposta";

std::set<std::int64_t> Posizioni(std::string_view testo) {
  std::set<std::int64_t> posizioni;
  while (!testo.empty()) {
    const std::size_t fine = std::min(testo.find(','), testo.size());
    std::int64_t posi = 0;
    std::from_chars(testo.data(), testo.data() + fine, posi);
    posizioni.insert(posi);
    testo.remove_prefix(std::min(fine + 1, testo.size()));
  }
  return posizioni;
}

}  // namespace

void RegistrazioneIva::Interno::NotaBozza() {
  std::string posizioni;
  for (const std::int64_t posi : proposte) {
    posizioni.append(posizioni.empty() ? "" : ",").append(std::to_string(posi));
  }
  bozza.Nota(kProposte, posizioni);
  bozza.Nota(kDescrizioneProposta, descrizioneProposta);
  bozza.Nota(kPagamentoProposto, pagamentoProposto);
  bozza.Nota(kDtFatProposta, dtFatProposta);
}

void RegistrazioneIva::Interno::IniziaBozza() {
  NotaBozza();
  bozza.Inizia(anno, documento.Nuovo() ? std::string() : std::to_string(numeroRecord), testa,
               righe);
}

void RegistrazioneIva::Interno::Segna() {
  NotaBozza();
  bozza.Segna(testa, righe);
}

std::string RegistrazioneIva::Interno::ApriPerBozza(RegistrazioneIva& caso,
                                                    const records::BozzaLasciata& lasciata,
                                                    bool& resta) {
  if (lasciata.record.empty()) {
    const auto riva = lasciata.testa.find("Riva");
    const bool noto = riva != lasciata.testa.end() && LeggiRegistro(riva->second);
    if (noto && caso.Nuovo()) return {};
    resta = noto;
    return noto ? std::string() : "il registro iva della registrazione non confermata non c'è più";
  }
  const std::string registrazione = "la registrazione n. " + lasciata.record;
  std::int64_t numero = 0;
  std::from_chars(lasciata.record.data(), lasciata.record.data() + lasciata.record.size(), numero);
  if (!caso.Apri(numero)) {
    return registrazione + " non c'è più: la correzione non si può riprendere";
  }
  if (caso.SolaLettura()) {
    resta = true;
    return registrazione +
           " si può solo consultare: la correzione si riprende riaprendo la funzione";
  }
  if (bozza.Concorda(lasciata)) return {};
  return registrazione + " è cambiata dopo: la correzione non si può riprendere";
}

void RegistrazioneIva::Interno::RiprendiStato(const records::BozzaLasciata& lasciata) {
  bozza.RiempiTesta(lasciata, testa);
  std::vector<RigaIva> nuove = bozza.RigheDi(lasciata, righe);
  for (RigaIva& una : nuove) {
    if (una.cfp.empty()) una.cfp = "P";
  }
  if (!lasciata.righe.empty()) righe.Sostituisci(std::move(nuove));
  proposte = Posizioni(lasciata.Nota(kProposte));
  descrizioneProposta = lasciata.Nota(kDescrizioneProposta);
  pagamentoProposto = lasciata.Nota(kPagamentoProposto);
  dtFatProposta = Valore(lasciata.Nota(kDtFatProposta)).Data();
  CalcolaTotali();
  bozza.RiempiRiga(lasciata, righe);
}

bool RegistrazioneIva::Riprendi() {
  Interno& io = *interno_;
  const auto lasciata = io.bozza.Offri({"una registrazione non confermata", "la"});
  if (!lasciata) return false;
  bool resta = false;
  std::string perche = io.ApriPerBozza(*this, *lasciata, resta);
  if (perche.empty() && io.Aperta()) {
    try {
      io.RiprendiStato(*lasciata);
      return io.bozza.Ripresa(io.testa, io.righe);
    } catch (const FuoriCampo& errore) {
      perche = std::string("totali della registrazione: ") + errore.what();
    }
  }
  Abbandona();
  return io.bozza.NonRipresa(perche, resta);
}

}  // namespace fenalto::vat
