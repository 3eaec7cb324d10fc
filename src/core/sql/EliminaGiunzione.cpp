#include "core/sql/EliminaGiunzione.h"

#include <algorithm>
#include <set>

#include "core/values/Testo.h"

namespace fenalto::sql {

namespace {

/// A join that can be dropped: `testa` goes, `righe` stays and reads its mirrors.
struct Piano {
  Fonte* righe = nullptr;
  Fonte* testa = nullptr;
  const Specchio* specchio = nullptr;
  std::set<const Espr*> condizione;  ///< columns in the ON, which goes too
};

const std::string& NomeColonna(const Espr& campo) {
  return campo.fonte->colonne[campo.colonna].nome;
}

bool InChiave(const Specchio& specchio, const std::string& nome) {
  return std::any_of(specchio.chiave.begin(), specchio.chiave.end(),
                     [&](const std::string& k) { return UgualeTesto(k, nome); });
}

/// Local mirror of a column of the other table; null when it isn't mirrored.
const std::string* SpecchioDi(const Specchio& specchio, const std::string& colonna) {
  for (const auto& [altra, locale] : specchio.colonne) {
    if (UgualeTesto(altra, colonna)) return &locale;
  }
  return nullptr;
}

/// Index of a column of a source by name, hidden ones included; npos when there is none.
std::size_t IndiceColonna(const Fonte& fonte, const std::string& nome) {
  for (std::size_t i = 0; i < fonte.colonne.size(); ++i) {
    if (UgualeTesto(fonte.colonne[i].nome, nome)) return i;
  }
  return std::string::npos;
}

/// Pairs of columns whose equality is all that the condition says; false when it says more.
bool Uguaglianze(const Espr& e, std::vector<std::pair<const Espr*, const Espr*>>& coppie) {
  if (e.genere == GenereEspr::E) {
    return std::all_of(e.figli.begin(), e.figli.end(),
                       [&](const EsprPtr& figlio) { return Uguaglianze(*figlio, coppie); });
  }
  if (e.genere != GenereEspr::Confronto || e.operatore != '=') return false;
  const Espr& a = *e.figli[0];
  const Espr& b = *e.figli[1];
  if (a.genere != GenereEspr::Campo || b.genere != GenereEspr::Campo) return false;
  coppie.emplace_back(&a, &b);
  return true;
}

const Specchio* CercaSpecchio(const Fonte& righe, const Fonte& testa) {
  if (righe.tabella == nullptr || testa.tabella == nullptr) return nullptr;
  const auto& chiave = testa.tabella->chiave;
  for (const Specchio& s : righe.tabella->specchi) {
    // The key must be the other table's own: otherwise one row could meet several.
    if (UgualeTesto(s.tabella, testa.tabella->nome) && !s.colonne.empty() &&
        s.chiave.size() == chiave.size() &&
        std::all_of(chiave.begin(), chiave.end(),
                    [&](const std::string& k) { return InChiave(s, k); })) {
      return &s;
    }
  }
  return nullptr;
}

/// Whether the ON says exactly that the keys are equal.
bool SuChiave(const Da& giunzione, Piano& piano) {
  std::vector<std::pair<const Espr*, const Espr*>> coppie;
  if (!giunzione.condizione || !Uguaglianze(*giunzione.condizione, coppie)) return false;
  std::set<std::string> viste;
  for (auto [a, b] : coppie) {
    if (a->fonte == piano.testa) std::swap(a, b);
    if (b->fonte != piano.testa || a->fonte == piano.testa) return false;
    if (piano.righe == nullptr) piano.righe = a->fonte;
    if (a->fonte != piano.righe || !UgualeTesto(NomeColonna(*a), NomeColonna(*b))) return false;
    viste.insert(SenzaMaiuscole(NomeColonna(*b)));
    piano.condizione.insert(a);
    piano.condizione.insert(b);
  }
  if (piano.righe == nullptr) return false;
  piano.specchio = CercaSpecchio(*piano.righe, *piano.testa);
  if (piano.specchio == nullptr) return false;
  return coppie.size() == piano.specchio->chiave.size() && viste.size() == coppie.size() &&
         std::all_of(coppie.begin(), coppie.end(), [&](const auto& c) {
           return InChiave(*piano.specchio, NomeColonna(*c.first));
         });
}

/// Whether everything read of the other table is key or mirrored.
bool BastaLoSpecchio(const Piano& piano) {
  for (const auto& [altra, locale] : piano.specchio->colonne) {
    if (IndiceColonna(*piano.righe, locale) == std::string::npos) return false;
  }
  return std::all_of(piano.testa->riferimenti.begin(), piano.testa->riferimenti.end(),
                     [&](const Espr* campo) {
                       if (piano.condizione.contains(campo)) return true;
                       const std::string& nome = NomeColonna(*campo);
                       // A text key may be spelled in other letters on the two sides.
                       if (InChiave(*piano.specchio, nome)) return campo->tipo != Tipo::Testo;
                       return SpecchioDi(*piano.specchio, nome) != nullptr;
                     });
}

/// Calls `f` on each column that must not be Null for the condition to be met.
template <typename F>
void PerOgniNonNullo(const Espr* e, const F& f) {
  if (e == nullptr) return;
  switch (e->genere) {
    case GenereEspr::E:
      for (const EsprPtr& figlio : e->figli) PerOgniNonNullo(figlio.get(), f);
      return;
    case GenereEspr::Confronto:
    case GenereEspr::Come:
      for (const EsprPtr& figlio : e->figli) {
        if (figlio->genere == GenereEspr::Campo) f(*figlio);
      }
      return;
    case GenereEspr::Tra:
    case GenereEspr::In:
      if (e->figli[0]->genere == GenereEspr::Campo) f(*e->figli[0]);
      return;
    case GenereEspr::ENullo:
      if (e->negato && e->figli[0]->genere == GenereEspr::Campo) f(*e->figli[0]);
      return;
    default:
      return;
  }
}

EsprPtr CampoDi(Fonte& fonte, std::size_t colonna, std::size_t posizione) {
  EsprPtr e = NuovaEspr(GenereEspr::Campo, posizione);
  e->fonte = &fonte;
  e->colonna = colonna;
  e->tipo = fonte.colonne[colonna].tipo;
  fonte.riferimenti.push_back(e.get());
  return e;
}

EsprPtr SpecchioNullo(const Piano& piano, bool negato, std::size_t posizione) {
  EsprPtr nullo = NuovaEspr(GenereEspr::ENullo, posizione);
  nullo->negato = negato;
  nullo->tipo = Tipo::Booleano;
  const std::string& specchio = piano.specchio->colonne.front().second;
  Aggiungi(*nullo, CampoDi(*piano.righe, IndiceColonna(*piano.righe, specchio), posizione));
  return nullo;
}

/// Turns a column of the dropped table into what the rows' table has of it.
void Riscrivi(Espr& campo, const Piano& piano, bool interna) {
  const std::string nome = NomeColonna(campo);
  Fonte& righe = *piano.righe;
  if (const std::string* specchio = SpecchioDi(*piano.specchio, nome);
      specchio != nullptr && !InChiave(*piano.specchio, nome)) {
    campo.fonte = &righe;
    campo.colonna = IndiceColonna(righe, *specchio);
    righe.riferimenti.push_back(&campo);
    return;
  }
  const std::size_t chiave = IndiceColonna(righe, nome);
  if (interna) {
    campo.fonte = &righe;
    campo.colonna = chiave;
    righe.riferimenti.push_back(&campo);
    return;
  }
  // The key of a row that isn't there is Null.
  campo.genere = GenereEspr::Se;
  campo.fonte = nullptr;
  Aggiungi(campo, SpecchioNullo(piano, false, campo.posizione));
  Aggiungi(campo, NuovaEspr(GenereEspr::Nullo, campo.posizione));
  Aggiungi(campo, CampoDi(righe, chiave, campo.posizione));
}

void Applica(Selezione& s, const Piano& piano, TipoGiunzione tipo) {
  bool rifiutaNulli = false;
  bool suSpecchio = false;
  PerOgniNonNullo(s.dove.get(), [&](const Espr& campo) {
    if (campo.fonte != piano.testa) return;
    rifiutaNulli = true;
    suSpecchio = suSpecchio || !InChiave(*piano.specchio, NomeColonna(campo));
  });
  const bool interna = tipo == TipoGiunzione::Interna || rifiutaNulli;
  for (Espr* campo : piano.testa->riferimenti) {
    if (!piano.condizione.contains(campo)) Riscrivi(*campo, piano, interna);
  }
  // A condition on a mirrored column leaves out the rows without a head by itself.
  if (interna && !suSpecchio) s.aggiunte.push_back(SpecchioNullo(piano, true, s.posizione));
  std::erase_if(piano.righe->riferimenti,
                [&](const Espr* campo) { return piano.condizione.contains(campo); });
  piano.testa->riferimenti.clear();
}

/// Drops the join at `posto` when it can; true when it did.
bool Elimina(Selezione& s, std::unique_ptr<Da>& posto) {
  const auto prova = [&](std::unique_ptr<Da>& testa, std::unique_ptr<Da>& resto) {
    if (testa->genere != Da::Genere::Tabella || testa->fonte->tabella == nullptr) return false;
    Piano piano;
    piano.testa = testa->fonte;
    if (!SuChiave(*posto, piano) || !BastaLoSpecchio(piano)) return false;
    Applica(s, piano, posto->giunzione);
    auto rimasto = std::move(resto);
    posto = std::move(rimasto);
    return true;
  };
  if (posto->giunzione == TipoGiunzione::Virgola) return false;
  if (prova(posto->destra, posto->sinistra)) return true;
  return posto->giunzione == TipoGiunzione::Interna && prova(posto->sinistra, posto->destra);
}

/// Not below the right side of an outer join: what is asked there must not move to WHERE.
void Visita(Selezione& s, std::unique_ptr<Da>& posto) {
  while (posto->genere == Da::Genere::Giunzione) {
    if (Elimina(s, posto)) continue;
    if (posto->giunzione != TipoGiunzione::Sinistra) Visita(s, posto->destra);
    Visita(s, posto->sinistra);
    return;
  }
}

}  // namespace

void EliminaGiunzioni(Selezione& selezione) {
  if (selezione.da) Visita(selezione, selezione.da);
}

}  // namespace fenalto::sql
