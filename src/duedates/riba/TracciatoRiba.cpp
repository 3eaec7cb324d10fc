#include "duedates/riba/TracciatoRiba.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/values/Lettere.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {

namespace {

using G = GenereRiba;
using D = DatoRiba;

constexpr CampoRiba F(int posizione, std::string_view testo) {
  return {posizione, static_cast<int>(testo.size()), G::Fisso, D::Nessuno, false, "", testo};
}

constexpr CampoRiba V(int posizione, int larghezza) {
  return {posizione, larghezza, G::Vuoto, D::Nessuno, false, "", ""};
}

/// A mandatory field.
constexpr CampoRiba C(int posizione, int larghezza, GenereRiba genere, D dato,
                      std::string_view nome) {
  return {posizione, larghezza, genere, dato, true, nome, ""};
}

constexpr CampoRiba Facoltativo(int posizione, int larghezza, D dato, std::string_view nome) {
  return {posizione, larghezza, G::Testo, dato, false, nome, ""};
}

constexpr CampoRiba Ricevuta() {
  return C(4, 7, G::Numero, D::NumeroRicevuta, "N.RICEVUTA");
}

constexpr std::array kIb = {
    F(1, " IB"),
    C(4, 5, G::Testo, D::CodiceSia, "CODICE SIA"),
    C(9, 5, G::Cifre, D::AbiBanca, "ABI BANCA PRESENTAZIONE RICEVUTE"),
    C(14, 6, G::Data, D::DataDistinta, "DATA DISTINTA"),
    C(20, 20, G::Testo, D::CreditoreRagSoc1, "RAGIONE SOCIALE CREDITORE"),
    V(40, 6),
    V(46, 68),
    F(114, "E"),
    V(115, 6),
};

constexpr std::array k14 = {
    F(1, " 14"),
    Ricevuta(),
    V(11, 12),
    C(23, 6, G::Data, D::Scadenza, "DATA SCADENZA"),
    F(29, "30000"),
    C(34, 13, G::Numero, D::Importo, "IMPORTO RICEVUTA"),
    C(47, 1, G::Segno, D::SegnoImporto, "SEGNO"),
    C(48, 5, G::Cifre, D::AbiBanca, "ABI BANCA PRESENTAZIONE"),
    C(53, 5, G::Cifre, D::CabBanca, "CAB BANCA PRESENTAZIONE"),
    C(58, 12, G::Testo, D::ContoBanca, "CONTO BANCA PRESENTAZIONE"),
    C(70, 5, G::Cifre, D::DebitoreAbi, "ABI DEBITORE"),
    C(75, 5, G::Cifre, D::DebitoreCab, "CAB DEBITORE"),
    V(80, 12),
    C(92, 5, G::Testo, D::CodiceSia, "CODICE SIA"),
    F(97, "4"),
    V(98, 16),
    V(114, 6),
    F(120, "E"),
};

constexpr std::array k20 = {
    F(1, " 20"),
    Ricevuta(),
    C(11, 24, G::Testo, D::CreditoreRagSoc1, "RAG.SOC.CREDITORE"),
    Facoltativo(35, 24, D::CreditoreRagSoc2, "RAG.SOC.CREDITORE"),
    Facoltativo(59, 24, D::CreditoreIndirizzo, "RAG.SOC.CREDITORE"),
    Facoltativo(83, 24, D::CreditoreLocalita, "RAG.SOC.CREDITORE"),
    V(107, 14),
};

constexpr std::array k30 = {
    F(1, " 30"),
    Ricevuta(),
    C(11, 30, G::Testo, D::DebitoreRagSoc1, "RAGIONE SOCIALE 1 DEBITORE"),
    Facoltativo(41, 30, D::DebitoreRagSoc2, "RAGIONE SOCIALE 2 DEBITORE"),
    C(71, 16, G::Testo, D::DebitorePiva, "PARTITA IVA DEBITORE"),
    V(87, 34),
};

constexpr std::array k40 = {
    F(1, " 40"),
    Ricevuta(),
    C(11, 30, G::Testo, D::DebitoreIndirizzo, "INDIRIZZO DEBITORE"),
    C(41, 5, G::Testo, D::DebitoreCap, "CAP DEBITORE"),
    C(46, 25, G::Testo, D::DebitoreLocalita, "LOCALITA E SIGLA PROVINCIA DEBITORE"),
    C(71, 50, G::Testo, D::DebitoreBanca, "BANCA E AGENZIA DEL DEBITORE"),
};

constexpr std::array k50 = {
    F(1, " 50"),
    Ricevuta(),
    C(11, 80, G::Testo, D::Riferimenti, "RIFERIMENTI FATTURE"),
    V(91, 10),
    C(101, 16, G::Testo, D::CreditorePiva, "PARTITA IVA CREDITORE"),
    V(117, 4),
};

// The name of the field in the messages says debtor, the content is the creditor's.
constexpr std::array k51 = {
    F(1, " 51"),
    Ricevuta(),
    C(11, 10, G::Numero, D::NumeroInterno, "N.INTERNO"),
    C(21, 20, G::Testo, D::CreditoreRagSoc1, "RAG.SOC.DEBITORE"),
    V(41, 80),
};

constexpr std::array k70 = {
    F(1, " 70"),
    Ricevuta(),
    C(11, 10, G::Numero, D::NumeroInterno, "N.INTERNO"),
    V(21, 100),
};

constexpr std::array kEf = {
    F(1, " EF"),
    C(4, 5, G::Testo, D::CodiceSia, "CODICE SIA"),
    C(9, 5, G::Cifre, D::AbiBanca, "ABI BANCA PRESENTAZIONE RICEVUTE"),
    C(14, 6, G::Data, D::DataDistinta, "DATA DISTINTA"),
    C(20, 20, G::Testo, D::CreditoreRagSoc1, "RAGIONE SOCIALE CREDITORE"),
    V(40, 6),
    C(46, 7, G::Numero, D::NumeroDisposizioni, "N.DISPOSIZIONI"),
    C(53, 15, G::Numero, D::ImportoTotale, "IMPORTOTOTALE"),
    F(68, "000000000000000"),  // "DATO DA RIEMPIRE DI ZERI"
    C(83, 7, G::Numero, D::NumeroRecord, "N.RECORD"),
    V(90, 24),
    F(114, "E"),
    V(115, 6),
};

struct DescrizioneRecord {
  std::string_view codice;
  std::span<const CampoRiba> campi;
};

constexpr std::array<DescrizioneRecord, kRecordRiba> kRecord = {{{"IB", kIb},
                                                                 {"14", k14},
                                                                 {"20", k20},
                                                                 {"30", k30},
                                                                 {"40", k40},
                                                                 {"50", k50},
                                                                 {"51", k51},
                                                                 {"70", k70},
                                                                 {"EF", kEf}}};

/// A slip in the tables doesn't compile: each record runs from column 1 to 120 without gaps.
constexpr bool SenzaVuoti() {
  for (const DescrizioneRecord& record : kRecord) {
    int colonna = 1;
    for (const CampoRiba& campo : record.campi) {
      if (campo.posizione != colonna || campo.larghezza <= 0) return false;
      colonna += campo.larghezza;
    }
    if (colonna != kColonneRiba + 1) return false;
  }
  return true;
}
static_assert(SenzaVuoti());

/// Marks whose nearest writing isn't a matter of accents.
constexpr std::array<std::pair<char32_t, std::string_view>, 44> kSegni = {{
    {U'\t', " "},    {U'\n', " "},   {U'\r', " "},   {U'[', "("},     {U'\\', "/"},
    {U']', ")"},     {U'^', "-"},    {U'`', "'"},    {U'{', "("},     {U'|', "/"},
    {U'}', ")"},     {U'~', "-"},    {0x00A0, " "},  {0x00A3, "L"},   {0x00A6, "/"},
    {0x00A9, "(c)"}, {0x00AA, "a"},  {0x00AB, "\""}, {0x00AD, ""},    {0x00AE, "(r)"},
    {0x00B0, "o"},   {0x00B4, "'"},  {0x00B7, "."},  {0x00BA, "o"},   {0x00BB, "\""},
    {0x00D7, "x"},   {0x2010, "-"},  {0x2011, "-"},  {0x2012, "-"},   {0x2013, "-"},
    {0x2014, "-"},   {0x2018, "'"},  {0x2019, "'"},  {0x201A, "'"},   {0x201C, "\""},
    {0x201D, "\""},  {0x201E, "\""}, {0x2022, "."},  {0x2026, "..."}, {0x2032, "'"},
    {0x20AC, "EUR"}, {0x2116, "No"}, {0x200B, ""},   {0xFEFF, ""},
}};

void AccodaRiba(std::string& testo, const lettere::Unita& unita) {
  if (!unita.valida) {
    testo += '?';
    return;
  }
  const auto* const segno =
      std::ranges::find(kSegni, unita.carattere, &std::pair<char32_t, std::string_view>::first);
  if (segno != kSegni.end()) {
    testo += segno->second;
    return;
  }
  const char32_t piegata = lettere::Piega(unita.carattere);
  std::string spoglia;
  lettere::AccodaSpoglia(spoglia, piegata);
  if (!std::ranges::all_of(spoglia, AmmessoRiba)) {
    testo += '?';
    return;
  }
  testo += piegata == unita.carattere ? spoglia : Maiuscolo(spoglia);
}

}  // namespace

RibaSegno RibaSegnoDaChiave(std::string_view valore) {
  return Rifila(valore) == "-" ? RibaSegno::SempreMeno : RibaSegno::DellImporto;
}

std::span<const CampoRiba> CampiRiba(RecordRiba record) {
  return kRecord[static_cast<std::size_t>(record)].campi;
}

std::string_view CodiceRecord(RecordRiba record) {
  return kRecord[static_cast<std::size_t>(record)].codice;
}

std::optional<RecordRiba> RecordDiLinea(std::string_view linea) {
  for (int i = 0; i < kRecordRiba; ++i) {
    const auto record = static_cast<RecordRiba>(i);
    if (linea.starts_with(CampiRiba(record).front().fisso)) return record;
  }
  return std::nullopt;
}

std::string_view ParteDiLinea(std::string_view linea, const CampoRiba& campo) {
  const auto inizio = static_cast<std::size_t>(campo.posizione - 1);
  if (inizio >= linea.size()) return {};
  return linea.substr(inizio, static_cast<std::size_t>(campo.larghezza));
}

bool DellaDistinta(DatoRiba dato) {
  return dato >= D::CodiceSia && dato <= D::CreditorePiva;
}

bool AmmessoRiba(char carattere) {
  return carattere >= ' ' && carattere <= '~' &&
         std::string_view("[\\]^`{|}~").find(carattere) == std::string_view::npos;
}

std::string LettereRiba(std::string_view testo) {
  std::string scritto;
  while (!testo.empty()) {
    const lettere::Unita unita = lettere::Leggi(testo);
    const char primo = testo.front();
    if (unita.byte == 1 && AmmessoRiba(primo))
      scritto += primo;
    else
      AccodaRiba(scritto, unita);
    testo.remove_prefix(unita.byte);
  }
  return scritto;
}

}  // namespace fenalto::duedates
