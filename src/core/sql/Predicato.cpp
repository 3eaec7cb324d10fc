#include "core/sql/Predicato.h"

#include <algorithm>
#include <array>
#include <deque>
#include <map>

#include "core/sql/Legatore.h"
#include "core/sql/Parser.h"
#include "core/values/Testo.h"

namespace fenalto::sql {

/// What the evaluator keeps of a bound expression. Nodes don't move: a constant's text is a view.
struct Predicato::Nodo {
  GenereEspr genere = GenereEspr::Nullo;
  char operatore = 0;
  bool negato = false;
  Fn funzione = Fn::Identita;
  std::size_t colonna = 0;
  Tipo tipo = Tipo::Nullo;
  Valore valore;
  Cella costante;
  std::vector<std::unique_ptr<Nodo>> figli;
};

Predicato::Predicato(std::unique_ptr<Nodo> radice, std::optional<Coppie> uguaglianze)
    : radice_(std::move(radice)), uguaglianze_(std::move(uguaglianze)) {}
Predicato::Predicato(Predicato&&) noexcept = default;
Predicato& Predicato::operator=(Predicato&&) noexcept = default;
Predicato::~Predicato() = default;

const std::optional<std::vector<std::pair<std::size_t, Valore>>>& Predicato::Uguaglianze() const {
  return uguaglianze_;
}

namespace {

/// A condition in memory reads no tables.
class CatalogoVuoto : public Catalogo {
 public:
  [[nodiscard]] const TabellaCatalogo* Tabella(std::string_view) const override { return nullptr; }
  [[nodiscard]] const VistaCatalogo* Vista(std::string_view) const override { return nullptr; }
};

/// The columns of a result set as sources, one a table, so that Table.Field finds its column.
struct FontiRighe {
  std::deque<Fonte> fonti;
  std::vector<Fonte*> elenco;
  std::map<const Fonte*, std::vector<std::size_t>> indici;

  explicit FontiRighe(std::span<const ColonnaUscita> colonne) {
    std::map<std::string, Fonte*> perTabella;
    for (std::size_t i = 0; i < colonne.size(); ++i) {
      Fonte*& fonte = perTabella[SenzaMaiuscole(colonne[i].tabella)];
      if (fonte == nullptr) {
        fonte = &fonti.emplace_back();
        fonte->nome = colonne[i].tabella;
        elenco.push_back(fonte);
      }
      fonte->colonne.push_back({colonne[i].nome,
                                colonne[i].tipo,
                                {},
                                colonne[i].tabella,
                                colonne[i].colonna,
                                false,
                                colonne[i].cifre});
      indici[fonte].push_back(i);
    }
  }
};

/// Number, amount, date... of a row as the engine would hold it.
Cella CellaDi(const Valore& v) {
  switch (v.Tipo()) {
    case Tipo::Nullo:
      return {};
    case Tipo::Booleano:
      return Cella::DiIntero(v.Booleano() ? 1 : 0);
    case Tipo::Importo:
      return Cella::DiIntero(v.Importo().Decimillesimi());
    case Tipo::Reale:
      return Cella::DiReale(v.Reale());
    case Tipo::Testo:
      return Cella::DiTesto(v.RifTesto());
    default:
      return Cella::DiIntero(v.Intero());
  }
}

Cella CellaDiRiga(const Valore& v, Tipo tipo, Deposito& deposito) {
  if (v.Nullo() || tipo == Tipo::Nullo || v.Tipo() == tipo) return CellaDi(v);
  try {
    const Valore convertito = v.Come(tipo);
    if (tipo == Tipo::Testo) return Cella::DiTesto(deposito.Tieni(convertito.RifTesto()));
    return CellaDi(convertito);
  } catch (const std::exception& errore) {
    throw ErroreCalcolo(errore.what());
  }
}

Cella Logica(bool vero) {
  return Cella::DiIntero(vero ? 1 : 0);
}
Cella Nega(const Cella& c) {
  return c.Nullo() ? c : Logica(c.Numero() == 0);
}

bool Regge(char operatore, int ordine) {
  switch (operatore) {
    case 'n':
      return ordine != 0;
    case '<':
      return ordine < 0;
    case 'l':
      return ordine <= 0;
    case '>':
      return ordine > 0;
    case 'g':
      return ordine >= 0;
    default:
      return ordine == 0;
  }
}

Cella Confronta(char operatore, const Cella& a, const Cella& b) {
  if (a.Nullo() || b.Nullo()) return {};
  return Logica(Regge(operatore, ConfrontaCelle(a, b)));
}

Cella Congiunzione(const Cella& a, const Cella& b) {
  if ((!a.Nullo() && a.Numero() == 0) || (!b.Nullo() && b.Numero() == 0)) return Logica(false);
  return a.Nullo() || b.Nullo() ? Cella{} : Logica(true);
}

template <typename N>
class Valutatore {
 public:
  Valutatore(std::span<const Valore> riga, Deposito& deposito) : riga_(riga), deposito_(deposito) {}

  Cella Valuta(const N& n) const {
    switch (n.genere) {
      case GenereEspr::Campo:
        return CellaDiRiga(riga_[n.colonna], n.tipo, deposito_);
      case GenereEspr::Letterale:
        return n.costante;
      case GenereEspr::E:
      case GenereEspr::O:
        return Catena(n);
      case GenereEspr::Non:
        return Nega(Figlio(n, 0));
      case GenereEspr::Confronto:
        return Confronta(n.operatore, Figlio(n, 0), Figlio(n, 1));
      case GenereEspr::Tra: {
        const Cella x = Figlio(n, 0);
        return Segno(
            n, Congiunzione(Confronta('g', x, Figlio(n, 1)), Confronta('l', x, Figlio(n, 2))));
      }
      case GenereEspr::In:
        return Segno(n, In(n));
      case GenereEspr::ENullo:
        return Logica(Figlio(n, 0).Nullo() != n.negato);
      case GenereEspr::Se: {
        const Cella condizione = Figlio(n, 0);
        return Figlio(n, !condizione.Nullo() && condizione.Numero() != 0 ? 1 : 2);
      }
      case GenereEspr::Come:
        return Segno(n, Chiama(n, Fn::Somiglia));
      case GenereEspr::Calcolo:
        return Chiama(n, n.funzione);
      default:
        return {};
    }
  }

 private:
  Cella Figlio(const N& n, std::size_t i) const { return Valuta(*n.figli[i]); }
  static Cella Segno(const N& n, const Cella& c) { return n.negato ? Nega(c) : c; }

  Cella Catena(const N& n) const {
    const bool e = n.genere == GenereEspr::E;
    bool nullo = false;
    for (const auto& figlio : n.figli) {
      const Cella c = Valuta(*figlio);
      if (c.Nullo()) {
        nullo = true;
      } else if ((c.Numero() != 0) != e) {
        return Logica(!e);
      }
    }
    return nullo ? Cella{} : Logica(e);
  }

  Cella In(const N& n) const {
    const Cella x = Figlio(n, 0);
    if (x.Nullo()) return {};
    bool nullo = false;
    for (std::size_t i = 1; i < n.figli.size(); ++i) {
      const Cella uguale = Confronta('=', x, Figlio(n, i));
      if (uguale.Nullo()) {
        nullo = true;
      } else if (uguale.intero != 0) {
        return uguale;
      }
    }
    return nullo ? Cella{} : Logica(false);
  }

  Cella Chiama(const N& n, Fn funzione) const {
    std::array<Cella, 3> argomenti;
    for (std::size_t i = 0; i < n.figli.size(); ++i) argomenti[i] = Figlio(n, i);
    return Calcola(funzione, {argomenti.data(), n.figli.size()}, deposito_);
  }

  std::span<const Valore> riga_;
  Deposito& deposito_;
};

/// Copies a bound expression into nodes of the evaluator.
template <typename N>
std::unique_ptr<N> Copia(const Espr& e, const FontiRighe& fonti) {
  if (e.query) Rifiuta(e.posizione, "una ricerca sulle righe non contiene SELECT");
  auto n = std::make_unique<N>();
  n->genere = e.genere;
  n->operatore = e.operatore;
  n->negato = e.negato;
  n->funzione = e.funzione;
  n->tipo = e.tipo;
  if (e.genere == GenereEspr::Campo) n->colonna = fonti.indici.at(e.fonte)[e.colonna];
  if (e.genere == GenereEspr::Letterale) {
    Esito<Valore, ErroreSql> valore = ValoreLegato(*e.letterale, e.legame);
    if (!valore) Rifiuta(e.posizione, valore.Errore().motivo);
    n->valore = std::move(valore).Valore();
    n->costante = CellaDi(n->valore);
  }
  for (const EsprPtr& figlio : e.figli) n->figli.push_back(Copia<N>(*figlio, fonti));
  return n;
}

using Coppie = std::vector<std::pair<std::size_t, Valore>>;

/// Collects `column = literal`; false when the condition says anything else.
template <typename N>
bool RaccogliUguaglianze(const N& n, Coppie& coppie) {
  if (n.genere == GenereEspr::E) {
    return std::all_of(n.figli.begin(), n.figli.end(),
                       [&](const auto& f) { return RaccogliUguaglianze(*f, coppie); });
  }
  if (n.genere != GenereEspr::Confronto || n.operatore != '=') return false;
  const N* campo = n.figli[0].get();
  const N* letterale = n.figli[1].get();
  if (campo->genere != GenereEspr::Campo) std::swap(campo, letterale);
  if (campo->genere != GenereEspr::Campo || letterale->genere != GenereEspr::Letterale)
    return false;
  // A number against a date is a day; a number with decimals is equal to no whole one.
  const bool giorni = campo->tipo == Tipo::Data && letterale->valore.Tipo() == Tipo::Intero;
  try {
    coppie.emplace_back(campo->colonna,
                        giorni ? letterale->valore.Come(Tipo::Data) : letterale->valore);
  } catch (const std::exception&) {
    return false;
  }
  return true;
}

template <typename N>
std::optional<Coppie> UguaglianzeDi(const N& radice) {
  Coppie coppie;
  if (RaccogliUguaglianze(radice, coppie)) return coppie;
  return std::nullopt;
}

}  // namespace

Esito<Predicato, ErroreSql> Predicato::Leggi(std::string_view criterio,
                                             std::span<const ColonnaUscita> colonne) {
  try {
    Albero albero;
    EsprPtr espr = Parser(criterio, false).LeggiCondizione(albero);
    FontiRighe fonti(colonne);
    const CatalogoVuoto catalogo;
    Legatore(catalogo).LegaCondizione(espr, fonti.elenco);
    auto radice = Copia<Nodo>(*espr, fonti);
    auto uguaglianze = UguaglianzeDi(*radice);
    return Predicato(std::move(radice), std::move(uguaglianze));
  } catch (Rifiuto& rifiuto) {
    return std::move(rifiuto.errore);
  }
}

bool Predicato::Vale(std::span<const Valore> riga) const {
  Deposito deposito;
  try {
    const Cella c = Valutatore<Nodo>(riga, deposito).Valuta(*radice_);
    return !c.Nullo() && c.Numero() != 0;
  } catch (const ErroreCalcolo&) {
    // A row on which the condition can't be calculated doesn't meet it.
    return false;
  }
}

}  // namespace fenalto::sql
