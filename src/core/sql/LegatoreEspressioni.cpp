// Names and types of expressions.
#include <array>

#include "core/sql/Legatore.h"
#include "core/sql/Tipi.h"
#include "core/values/Testo.h"

namespace fenalto::sql {

namespace {

/// Aliases of aliases multiply: no statement needs an expression of this many parts.
constexpr std::size_t kPesoMassimo = 20'000;

/// Parts of an expression once its aliases are written out.
std::size_t Peso(const Espr& e) {
  if (e.genere == GenereEspr::Rinvio) return e.peso;
  std::size_t peso = 1;
  for (const EsprPtr& figlio : e.figli) peso += Peso(*figlio);
  return peso;
}

}  // namespace

void Legatore::LegaEspr(EsprPtr& espr, const Ambito& ambito) {
  Espr& e = *espr;
  switch (e.genere) {
    case GenereEspr::Campo:
      return LegaCampo(espr, ambito);
    case GenereEspr::Letterale:
      return TipoNaturale(e);
    case GenereEspr::Nullo:
      return;
    case GenereEspr::Stella:
      Rifiuta(e.posizione, "* sta solo in Count(*)");
    case GenereEspr::Chiamata:
      return LegaChiamata(espr, ambito);
    case GenereEspr::Aritmetica: {
      LegaFigli(e, ambito);
      const std::size_t posizione = e.posizione;
      LegaAritmetica(espr);
      espr->posizione = posizione;
      return;
    }
    case GenereEspr::E:
    case GenereEspr::O:
    case GenereEspr::Non:
      for (EsprPtr& figlio : e.figli) {
        LegaBooleano(figlio, ambito, e.genere == GenereEspr::Non ? "NOT" : "AND e OR");
        e.haAggregati = e.haAggregati || figlio->haAggregati;
      }
      e.tipo = Tipo::Booleano;
      return;
    case GenereEspr::Confronto:
    case GenereEspr::Come:
    case GenereEspr::Tra:
    case GenereEspr::In:
    case GenereEspr::ENullo:
      return LegaConfronti(espr, ambito);
    case GenereEspr::InQuery:
    case GenereEspr::Esiste:
    case GenereEspr::SottoQuery:
      return LegaSottoQuery(e, ambito);
    default:
      return;
  }
}

void Legatore::LegaFigli(Espr& e, const Ambito& ambito) {
  for (EsprPtr& figlio : e.figli) {
    LegaEspr(figlio, ambito);
    e.haAggregati = e.haAggregati || figlio->haAggregati;
  }
}

void Legatore::LegaBooleano(EsprPtr& espr, const Ambito& ambito, const char* dove) {
  LegaEspr(espr, ambito);
  if (espr->tipo == Tipo::Booleano || espr->tipo == Tipo::Nullo) return;
  if (ENumero(espr->tipo)) return Converti(espr, Tipo::Booleano);
  std::string motivo(dove);
  Rifiuta(espr->posizione,
          motivo.append(": serve una condizione, non ").append(NomeTipo(espr->tipo)));
}

bool Legatore::Trova(Espr& e, const Ambito& ambito) {
  Fonte* trovata = nullptr;
  std::size_t colonna = 0;
  const auto cerca = [&](Fonte* fonte, std::string_view nome) {
    for (std::size_t i = 0; i < fonte->colonne.size(); ++i) {
      if (fonte->colonne[i].nascosta || !UgualeTesto(fonte->colonne[i].nome, nome)) continue;
      if (trovata != nullptr) {
        Rifiuta(e.posizione, "il campo \"" + std::string(nome) + "\" è ambiguo: sta in " +
                                 trovata->nome + " e in " + fonte->nome +
                                 "; scriverlo come Tabella.Campo");
      }
      trovata = fonte;
      colonna = i;
      return;
    }
  };
  for (Fonte* fonte : ambito.fonti) {
    if (e.qualifica.empty() || UgualeTesto(fonte->nome, e.qualifica)) cerca(fonte, e.nome);
  }
  if (trovata == nullptr && !e.qualifica.empty()) {
    // A query over a join may have a column whose very name is Table.Field.
    const std::string intero = std::string(e.qualifica) + "." + std::string(e.nome);
    for (Fonte* fonte : ambito.fonti) cerca(fonte, intero);
  }
  if (trovata == nullptr) return false;
  e.fonte = trovata;
  e.colonna = colonna;
  e.tipo = trovata->colonne[colonna].tipo;
  trovata->riferimenti.push_back(&e);
  return true;
}

bool Legatore::TrovaAlias(Espr& e, const Ambito& ambito) {
  if (ambito.selezione == nullptr || !e.qualifica.empty()) return false;
  for (std::size_t i = 0; i < ambito.vociLegate; ++i) {
    const Voce& voce = ambito.selezione->voci[i];
    if (voce.alias.empty() || !UgualeTesto(voce.alias, e.nome)) continue;
    if (voce.espr->haAggregati && !ambito.aggregati) {
      Rifiuta(e.posizione, "qui non può stare l'aggregato \"" + std::string(e.nome) + "\"");
    }
    e.peso = Peso(*voce.espr);
    if (e.peso > kPesoMassimo) Rifiuta(e.posizione, "espressione troppo grande");
    e.genere = GenereEspr::Rinvio;
    e.rinvio = voce.espr.get();
    e.tipo = voce.espr->tipo;
    e.haAggregati = voce.espr->haAggregati;
    return true;
  }
  return false;
}

void Legatore::LegaCampo(EsprPtr& espr, const Ambito& ambito) {
  Espr& e = *espr;
  if (e.fonte != nullptr) return;  // spread from *
  for (const Ambito* a = &ambito; a != nullptr; a = a->esterno) {
    if (Trova(e, *a) || TrovaAlias(e, *a)) return;
  }
  const std::string nome(e.nome);
  if (e.qualifica.empty()) {
    std::vector<std::string> fonti;
    for (const Fonte* fonte : ambito.fonti) fonti.push_back(fonte->nome);
    Rifiuta(e.posizione, "non c'è nessun campo \"" + nome + "\"" +
                             (fonti.empty() ? std::string() : " in " + Elenco(fonti)));
  }
  for (const Ambito* a = &ambito; a != nullptr; a = a->esterno) {
    for (const Fonte* fonte : a->fonti) {
      if (!UgualeTesto(fonte->nome, e.qualifica)) continue;
      std::vector<std::string> campi;
      for (const ColonnaFonte& c : fonte->colonne) {
        if (!c.nascosta) campi.push_back(c.nome);
      }
      Rifiuta(e.posizione, fonte->nome + " non ha il campo \"" + nome + "\"; ha " + Elenco(campi));
    }
  }
  Rifiuta(e.posizione, "non c'è nessuna tabella \"" + std::string(e.qualifica) + "\" nella FROM");
}

void Legatore::LegaConfronti(EsprPtr& espr, const Ambito& ambito) {
  Espr& e = *espr;
  LegaFigli(e, ambito);
  e.tipo = Tipo::Booleano;
  if (e.genere == GenereEspr::ENullo) return;
  if (e.genere == GenereEspr::Come) {
    for (EsprPtr& figlio : e.figli) Converti(figlio, Tipo::Testo);
    Espr& modello = *e.figli[1];
    if (modello.genere == GenereEspr::Letterale) modello.legame = Legame::ModelloLike;
    return;
  }
  std::vector<EsprPtr*> valori;
  for (EsprPtr& figlio : e.figli) valori.push_back(&figlio);
  AccordaCifre(valori, e.genere == GenereEspr::In || e.operatore == '=' || e.operatore == 'n');
  Accorda(valori, e.posizione);
}

void Legatore::LegaSottoQuery(Espr& e, const Ambito& ambito) {
  LegaFigli(e, ambito);
  LegaQuery(*e.query, &ambito);
  e.tipo = Tipo::Booleano;
  if (e.genere == GenereEspr::Esiste) return;
  if (e.query->colonne.size() != 1) {
    Rifiuta(e.query->posizione, "qui la SELECT deve avere una colonna sola");
  }
  const Tipo tipo = e.query->colonne.front().tipo;
  if (e.genere == GenereEspr::SottoQuery) {
    e.tipo = tipo;
    return;
  }
  // The column is compared like any expression of its type; a literal adapts to it.
  EsprPtr& sinistra = e.figli.front();
  EsprPtr colonna = NuovaEspr(GenereEspr::Campo, e.posizione);
  colonna->tipo = tipo;
  std::array<EsprPtr*, 2> coppia{&sinistra, &colonna};
  Accorda(coppia, e.posizione);
  if (colonna->genere != GenereEspr::Campo) {
    for (const auto& ramo : e.query->rami) {
      Converti(ramo->voci.front().espr, colonna->tipo);
    }
  }
}

}  // namespace fenalto::sql
