#include "core/sql/Traduttore.h"

#include <charconv>
#include <cmath>
#include <optional>

#include "core/sql/EliminaGiunzione.h"
#include "core/sql/Emettitore.h"
#include "core/sql/Legatore.h"
#include "core/sql/Parser.h"
#include "core/values/Testo.h"

namespace fenalto::sql {

std::string ErroreSql::Messaggio(std::string_view testo) const {
  constexpr std::size_t kIntorno = 40;
  const std::size_t qui = std::min(posizione, testo.size());
  std::size_t da = qui > kIntorno ? qui - kIntorno : 0;
  // Not in the middle of a character.
  while (da < qui && (static_cast<unsigned char>(testo[da]) & 0xC0U) == 0x80U) ++da;
  std::string messaggio = "SQL: " + motivo + " (posizione " + std::to_string(qui + 1) + ")\n";
  messaggio.append(testo.substr(da, qui - da)).append(" >>> ").append(testo.substr(qui));
  return messaggio;
}

namespace {

/// The result is one row of one table for each of its rows: its identity goes along.
void SegnaRiga(Query& query, Istruzione& istruzione) {
  if (query.base == nullptr) return;
  istruzione.tabellaBase = query.base->tabellaRiga;
  for (Query* q = &query; q != nullptr && q->base != nullptr; q = q->base->query) {
    q->emettiRiga = true;
  }
}

Istruzione TraduciTesto(std::string_view testo, const Catalogo& catalogo,
                        const Dialetto& dialetto) {
  Albero albero = Parser(testo, false).LeggiIstruzione();
  Legatore legatore(catalogo);
  legatore.Lega(albero);
  Istruzione istruzione;
  istruzione.genere = albero.genere;
  istruzione.tabelle = legatore.Tabelle();
  if (albero.genere == Istruzione::Genere::Selezione) {
    for (const ColonnaFonte& c : albero.query->colonne) {
      istruzione.colonne.push_back({c.nome, c.tipo, c.tabella, c.colonna, c.cifre});
    }
    SegnaRiga(*albero.query, istruzione);
  }
  for (const Legatore::RamoLegato& ramo : legatore.Rami()) EliminaGiunzioni(*ramo.selezione);
  Emettitore emettitore(dialetto);
  emettitore.Emetti(albero);
  istruzione.sql = std::move(emettitore.sql);
  istruzione.parametri = std::move(emettitore.parametri);
  return istruzione;
}

}  // namespace

Esito<Istruzione, ErroreSql> Traduci(std::string_view testo, const Catalogo& catalogo,
                                     const Dialetto& dialetto) {
  try {
    return TraduciTesto(testo, catalogo, dialetto);
  } catch (Rifiuto& rifiuto) {
    return std::move(rifiuto.errore);
  }
}

namespace {

ErroreSql NonE(const Letterale& letterale, const char* cosa) {
  constexpr std::size_t kLungo = 60;
  return ErroreSql{"\"" + letterale.testo.substr(0, kLungo) + "\" non è " + cosa, 0};
}

std::optional<int> Cifre(std::string_view testo) {
  int n = 0;
  const auto esito = std::from_chars(testo.data(), testo.data() + testo.size(), n);
  if (esito.ec != std::errc() || esito.ptr != testo.data() + testo.size()) return std::nullopt;
  return n;
}

/// "mm/dd/yyyy", months and days of one digit too.
std::optional<Data> DataLetterale(std::string_view testo) {
  const std::size_t primo = testo.find('/');
  const std::size_t secondo = testo.find('/', primo == std::string_view::npos ? primo : primo + 1);
  if (secondo == std::string_view::npos || primo > 2 || secondo - primo > 3 ||
      testo.size() - secondo != 5) {
    return std::nullopt;
  }
  const auto mese = Cifre(testo.substr(0, primo));
  const auto giorno = Cifre(testo.substr(primo + 1, secondo - primo - 1));
  const auto anno = Cifre(testo.substr(secondo + 1));
  if (!mese || !giorno || !anno) return std::nullopt;
  return Data::DaGma(*giorno, *mese, *anno);
}

Esito<Valore, ErroreSql> Numero(const Letterale& letterale, Legame legame) {
  const std::string_view testo = Rifila(letterale.testo);
  if (testo.empty()) return NonE(letterale, "un numero");
  // ".5" and "-.5" are numbers of the dialect.
  std::string cifre(testo);
  const std::size_t punto = cifre.starts_with('-') ? 1 : 0;
  if (punto < cifre.size() && cifre[punto] == '.') cifre.insert(punto, "0");
  const Valore scritto(std::move(cifre));
  try {
    if (legame == Legame::Importo) return Valore(scritto.Importo());
    if (legame == Legame::Reale) return Valore(scritto.Reale());
    // A number that isn't whole is equal to no whole one: it stays a real.
    const std::string& t = scritto.RifTesto();
    if (t.find_first_of(".eE") == std::string::npos) return Valore(scritto.Intero());
    const double reale = scritto.Reale();
    if (reale == std::floor(reale) && std::abs(reale) < 9e15) return Valore(scritto.Intero());
    return Valore(reale);
  } catch (const FuoriCampo&) {
    return NonE(letterale, "un numero nel campo ammesso");
  } catch (const std::domain_error&) {
    return NonE(letterale, "un numero");
  }
}

Esito<Valore, ErroreSql> Logico(const Letterale& letterale) {
  if (letterale.genere == Letterale::Genere::Booleano) {
    return Valore(UgualeTesto(letterale.testo, "True"));
  }
  if (letterale.genere != Letterale::Genere::Numero) return NonE(letterale, "un sì/no");
  return Valore(letterale.testo.find_first_of("123456789") != std::string::npos);
}

}  // namespace

Esito<Valore, ErroreSql> ValoreLegato(const Letterale& letterale, Legame legame) {
  static const Valore kNullo;
  switch (legame) {
    case Legame::Nullo:
      return kNullo;
    case Legame::Testo:
    case Legame::ModelloLike:
      return Valore(letterale.testo);
    case Legame::Cifre: {
      const bool zero = letterale.testo.find_first_not_of("0.") == std::string::npos;
      return Valore(zero ? std::string() : letterale.testo);
    }
    case Legame::InizioLike:
      return Valore(PrefissoDi(letterale.testo));
    case Legame::FineLike:
      // The last character of all: no text goes on with a greater one.
      return Valore(std::string(PrefissoDi(letterale.testo)) + "\U0010FFFF");
    case Legame::Booleano:
      return Logico(letterale);
    case Legame::Data:
      if (letterale.genere == Letterale::Genere::Data) {
        if (const auto data = DataLetterale(letterale.testo)) return Valore(*data);
      }
      return NonE(letterale, "una data: scriverla come #mm/gg/aaaa#");
    case Legame::Intero:
    case Legame::Importo:
    case Legame::Reale:
      break;
  }
  if (letterale.genere != Letterale::Genere::Numero &&
      letterale.genere != Letterale::Genere::Testo) {
    return NonE(letterale, "un numero");
  }
  return Numero(letterale, legame);
}

}  // namespace fenalto::sql
