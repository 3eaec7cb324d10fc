#include "core/sql/Legatore.h"

#include <algorithm>
#include <charconv>
#include <set>

#include "core/sql/Parser.h"
#include "core/sql/Tipi.h"
#include "core/values/Testo.h"

namespace fenalto::sql {

namespace {

constexpr std::size_t kVisteAnnidate = 16;
/// Stored queries that name others twice grow without bound; no statement needs this many.
constexpr int kEspansioniMassime = 500;

bool ENumeroLetterale(const Espr& e) {
  return e.genere == GenereEspr::Letterale && e.letterale->genere == Letterale::Genere::Numero;
}

/// Index of the output column that a number in ORDER BY or GROUP BY names.
std::size_t Posto(const Espr& e, std::size_t colonne, const char* dove) {
  std::size_t n = 0;
  const std::string& cifre = e.letterale->testo;
  const auto esito = std::from_chars(cifre.data(), cifre.data() + cifre.size(), n);
  if (esito.ec != std::errc() || esito.ptr != cifre.data() + cifre.size() || n < 1 || n > colonne) {
    Rifiuta(e.posizione, std::string(dove) + ": non c'è la colonna numero " + cifre);
  }
  return n - 1;
}

}  // namespace

std::string Elenco(const std::vector<std::string>& nomi) {
  std::string uscita;
  for (const std::string& nome : nomi) uscita.append(uscita.empty() ? "" : ", ").append(nome);
  return uscita;
}

void Legatore::AggiungiTabella(const std::string& nome) {
  if (std::find(tabelle_.begin(), tabelle_.end(), nome) == tabelle_.end()) tabelle_.push_back(nome);
}

void Legatore::Lega(Albero& albero) {
  if (albero.genere == Istruzione::Genere::Selezione) {
    LegaQuery(*albero.query, nullptr);
  } else {
    LegaAzione(albero);
  }
}

void Legatore::LegaCondizione(EsprPtr& espr, const std::vector<Fonte*>& fonti) {
  Ambito ambito;
  ambito.fonti = fonti;
  LegaBooleano(espr, ambito, "la condizione");
}

void Legatore::LegaQuery(Query& query, const Ambito* esterno) {
  Ambito primo;
  for (std::size_t i = 0; i < query.rami.size(); ++i) {
    Ambito ambito;
    ambito.esterno = esterno;
    LegaRamo(*query.rami[i], ambito);
    rami_.push_back({query.rami[i].get(), &query});
    if (i == 0) primo = std::move(ambito);
  }
  if (query.rami.size() > 1) LegaUnione(query);
  ColonneDi(query);
  LegaOrdine(query, primo);
  const Selezione& s = *query.rami.front();
  const bool semplice = query.rami.size() == 1 && !s.distinta && !s.aggregata && s.da;
  if (semplice && s.da->fonte != nullptr && !s.da->fonte->tabellaRiga.empty())
    query.base = s.da->fonte;
}

void Legatore::LegaRamo(Selezione& s, Ambito& ambito) {
  if (s.da) {
    ambito.fonti = LegaDa(*s.da, s, ambito.esterno);
    std::sort(ambito.fonti.begin(), ambito.fonti.end(),
              [](const Fonte* a, const Fonte* b) { return a->posizione < b->posizione; });
  }
  SpandiStelle(s, ambito);
  if (s.dove) LegaBooleano(s.dove, ambito, "WHERE");
  ambito.selezione = &s;
  LegaClausole(s, ambito);
  NominaVoci(s);
}

void Legatore::LegaClausole(Selezione& s, Ambito& ambito) {
  ambito.aggregati = true;
  for (Voce& voce : s.voci) {
    LegaEspr(voce.espr, ambito);
    ++ambito.vociLegate;
    s.aggregata = s.aggregata || voce.espr->haAggregati;
  }
  ambito.aggregati = false;
  for (EsprPtr& gruppo : s.gruppi) {
    if (ENumeroLetterale(*gruppo)) {
      gruppo->genere = GenereEspr::Rinvio;
      gruppo->rinvio = s.voci[Posto(*gruppo, s.voci.size(), "GROUP BY")].espr.get();
      gruppo->tipo = gruppo->rinvio->tipo;
      gruppo->haAggregati = gruppo->rinvio->haAggregati;
    } else {
      LegaEspr(gruppo, ambito);
    }
    if (gruppo->haAggregati) Rifiuta(gruppo->posizione, "GROUP BY non raggruppa per un aggregato");
  }
  ambito.aggregati = true;
  if (s.avendo) LegaBooleano(s.avendo, ambito, "HAVING");
  s.aggregata = s.aggregata || !s.gruppi.empty() || (s.avendo && s.avendo->haAggregati);
  if (s.avendo && !s.aggregata) {
    Rifiuta(s.avendo->posizione, "HAVING vuole GROUP BY o un aggregato: usare WHERE");
  }
  if (!s.aggregata) return;
  for (const Voce& voce : s.voci) VerificaGruppi(*voce.espr, s);
  if (s.avendo) VerificaGruppi(*s.avendo, s);
}

std::vector<Fonte*> Legatore::LegaDa(Da& da, Selezione& s, const Ambito* esterno) {
  if (da.genere != Da::Genere::Giunzione) return {LegaFonte(da, s)};
  Ambito ambito;
  ambito.fonti = LegaDa(*da.sinistra, s, esterno);
  const std::vector<Fonte*> destra = LegaDa(*da.destra, s, esterno);
  for (Fonte* fonte : destra) {
    for (const Fonte* altra : ambito.fonti) {
      if (UgualeTesto(fonte->nome, altra->nome)) {
        Rifiuta(fonte->posizione,
                "\"" + fonte->nome + "\" compare due volte: dare un altro nome con AS");
      }
    }
  }
  ambito.fonti.insert(ambito.fonti.end(), destra.begin(), destra.end());
  if (da.condizione) {
    ambito.esterno = esterno;
    LegaBooleano(da.condizione, ambito, "ON");
  }
  return ambito.fonti;
}

Fonte* Legatore::LegaFonte(Da& da, Selezione& s) {
  auto nuova = std::make_unique<Fonte>();
  Fonte& fonte = *nuova;
  fonte.posizione = da.posizione;
  fonte.numero = ++fonti_;
  fonte.nome = !da.alias.empty() ? da.alias : da.nome;
  if (da.genere == Da::Genere::SottoQuery) {
    if (fonte.nome.empty()) fonte.nome = "#" + std::to_string(fonte.numero);
    LegaQuery(*da.query, nullptr);
    ApriQuery(*da.query, fonte);
  } else if (const TabellaCatalogo* tabella = catalogo_.Tabella(da.nome)) {
    if (da.alias.empty()) fonte.nome = tabella->nome;
    ApriTabella(*tabella, fonte);
  } else if (const VistaCatalogo* vista = catalogo_.Vista(da.nome)) {
    if (da.alias.empty()) fonte.nome = vista->nome;
    ApriVista(*vista, fonte, da.posizione);
  } else {
    Rifiuta(da.posizione, "non c'è nessuna tabella o vista \"" + std::string(da.nome) + "\"");
  }
  da.fonte = &fonte;
  s.fonti.push_back(std::move(nuova));
  return &fonte;
}

void Legatore::ApriTabella(const TabellaCatalogo& tabella, Fonte& fonte) {
  fonte.tabella = &tabella;
  fonte.tabellaRiga = tabella.nome;
  for (const ColonnaCatalogo& c : tabella.colonne) {
    fonte.colonne.push_back({c.nome, c.tipo, c.nome, tabella.nome, c.nome, c.nascosta, c.cifre});
  }
  AggiungiTabella(tabella.nome);
}

void Legatore::ApriQuery(Query& query, Fonte& fonte) {
  fonte.query = &query;
  fonte.colonne = query.colonne;
  if (query.base != nullptr) fonte.tabellaRiga = query.base->tabellaRiga;
}

void Legatore::ApriVista(const VistaCatalogo& vista, Fonte& fonte, std::size_t posizione) {
  for (const std::string_view aperta : aperte_) {
    if (UgualeTesto(aperta, vista.nome)) {
      Rifiuta(posizione, "la vista \"" + vista.nome + "\" richiama se stessa");
    }
  }
  if (aperte_.size() >= kVisteAnnidate || ++espansioni_ > kEspansioniMassime) {
    Rifiuta(posizione, "viste troppo annidate: \"" + vista.nome + "\"");
  }
  const std::string& nome = testiViste_.emplace_back(vista.nome);
  aperte_.push_back(nome);
  try {
    const std::string& testo = testiViste_.emplace_back(vista.testo);
    Albero& albero = viste_.emplace_back(Parser(testo, true).LeggiIstruzione());
    if (albero.genere != Istruzione::Genere::Selezione) Rifiuta(0, "una vista è una SELECT");
    LegaQuery(*albero.query, nullptr);
    ApriQuery(*albero.query, fonte);
  } catch (Rifiuto& rifiuto) {
    // The place is one of the stored query's text: the caller's text only has its name.
    ErroreSql& e = rifiuto.errore;
    Rifiuta(posizione, "nella vista " + nome + ", alla posizione " +
                           std::to_string(e.posizione + 1) + ": " + e.motivo);
  }
  aperte_.pop_back();
}

void Legatore::SpandiStelle(Selezione& s, Ambito& ambito) {
  std::vector<Voce> voci;
  for (Voce& voce : s.voci) {
    if (voce.espr) {
      voci.push_back(std::move(voce));
      continue;
    }
    bool trovata = false;
    for (Fonte* fonte : ambito.fonti) {
      if (!voce.tabellaStella.empty() && !UgualeTesto(fonte->nome, voce.tabellaStella)) continue;
      trovata = true;
      for (std::size_t i = 0; i < fonte->colonne.size(); ++i) {
        if (fonte->colonne[i].nascosta) continue;
        Voce nuova;
        nuova.posizione = voce.posizione;
        nuova.espr = NuovaEspr(GenereEspr::Campo, voce.posizione);
        nuova.espr->fonte = fonte;
        nuova.espr->colonna = i;
        nuova.espr->tipo = fonte->colonne[i].tipo;
        fonte->riferimenti.push_back(nuova.espr.get());
        voci.push_back(std::move(nuova));
      }
    }
    if (!trovata) {
      Rifiuta(voce.posizione, voce.tabellaStella.empty()
                                  ? "* senza FROM"
                                  : "non c'è nessuna tabella \"" + std::string(voce.tabellaStella) +
                                        "\" nella FROM");
    }
  }
  s.voci = std::move(voci);
}

void Legatore::NominaVoci(Selezione& s) {
  std::set<std::string> usati;
  for (Voce& voce : s.voci) {
    if (voce.alias.empty()) continue;
    voce.nome = voce.alias;
    if (!usati.insert(SenzaMaiuscole(voce.nome)).second) {
      Rifiuta(voce.posizione, "il nome \"" + voce.nome + "\" è dato a due colonne");
    }
  }
  std::size_t numero = 0;
  for (Voce& voce : s.voci) {
    ++numero;
    if (!voce.alias.empty()) continue;
    const Espr& e = *voce.espr;
    const bool campo = e.genere == GenereEspr::Campo;
    voce.nome = campo ? e.fonte->colonne[e.colonna].nome : "Espr" + std::to_string(numero);
    if (campo && usati.contains(SenzaMaiuscole(voce.nome))) {
      voce.nome = e.fonte->nome + "." + voce.nome;
    }
    while (!usati.insert(SenzaMaiuscole(voce.nome)).second) {
      voce.nome += "_" + std::to_string(numero);
    }
  }
}

void Legatore::LegaUnione(Query& query) {
  const std::size_t colonne = query.rami.front()->voci.size();
  for (const auto& ramo : query.rami) {
    if (ramo->voci.size() != colonne) {
      Rifiuta(ramo->posizione, "le SELECT unite da UNION hanno un numero diverso di colonne");
    }
  }
  for (std::size_t i = 0; i < colonne; ++i) {
    Tipo tipo = Tipo::Nullo;
    for (const auto& ramo : query.rami) {
      tipo = Unifica(tipo, ramo->voci[i].espr->tipo, ramo->voci[i].posizione);
    }
    for (const auto& ramo : query.rami) {
      Converti(ramo->voci[i].espr, tipo);
      if (ramo->voci[i].espr->tipo == Tipo::Nullo) ramo->voci[i].espr->tipo = tipo;
    }
  }
}

void Legatore::ColonneDi(Query& query) {
  const bool unione = query.rami.size() > 1;
  std::size_t numero = 0;
  for (const Voce& voce : query.rami.front()->voci) {
    ColonnaFonte colonna;
    colonna.nome = voce.nome;
    colonna.tipo = voce.espr->tipo;
    colonna.sql = "c" + std::to_string(++numero);
    if (voce.espr->genere == GenereEspr::Campo && !unione) {
      const ColonnaFonte& origine = voce.espr->fonte->colonne[voce.espr->colonna];
      colonna.tabella = origine.tabella;
      colonna.colonna = origine.colonna;
      colonna.cifre = origine.cifre;
    }
    query.colonne.push_back(std::move(colonna));
  }
}

bool Legatore::OrdineDiUscita(const Query& query, VoceOrdine& voce) {
  const Espr& e = *voce.espr;
  if (ENumeroLetterale(e)) {
    voce.colonna = static_cast<int>(Posto(e, query.colonne.size(), "ORDER BY"));
    return true;
  }
  if (e.genere != GenereEspr::Campo) return false;
  const auto& voci = query.rami.front()->voci;
  for (std::size_t i = 0; i < voci.size(); ++i) {
    // In a union the qualified name of a column of the first SELECT is its output column too.
    const bool alias = e.qualifica.empty() && UgualeTesto(voci[i].nome, e.nome);
    const bool unione = query.rami.size() > 1 && UgualeTesto(query.colonne[i].nome, e.nome);
    if (alias || unione) {
      voce.colonna = static_cast<int>(i);
      return true;
    }
  }
  return false;
}

void Legatore::LegaOrdine(Query& query, Ambito& ambito) {
  const Selezione& s = *query.rami.front();
  for (VoceOrdine& voce : query.ordine) {
    if (OrdineDiUscita(query, voce)) continue;
    if (query.rami.size() > 1) {
      Rifiuta(voce.espr->posizione, "dopo UNION si ordina per i nomi o i numeri delle colonne");
    }
    ambito.aggregati = s.aggregata;
    LegaEspr(voce.espr, ambito);
    if (s.aggregata) VerificaGruppi(*voce.espr, s);
  }
}

namespace {

bool UgualiFigli(const Espr& a, const Espr& b) {
  return std::equal(a.figli.begin(), a.figli.end(), b.figli.begin(), b.figli.end(),
                    [](const EsprPtr& x, const EsprPtr& y) { return UgualiEspr(*x, *y); });
}

const Espr& Seguito(const Espr& e) {
  const Espr* p = &e;
  while (p->genere == GenereEspr::Rinvio) p = p->rinvio;
  return *p;
}

}  // namespace

bool UgualiEspr(const Espr& primo, const Espr& secondo) {
  const Espr& a = Seguito(primo);
  const Espr& b = Seguito(secondo);
  if (&a == &b) return true;
  if (a.genere != b.genere || a.query || b.query || a.negato != b.negato) return false;
  switch (a.genere) {
    case GenereEspr::Campo:
      return a.fonte == b.fonte && a.colonna == b.colonna;
    case GenereEspr::Letterale:
      return a.letterale->genere == b.letterale->genere && a.letterale->testo == b.letterale->testo;
    case GenereEspr::Calcolo:
      return a.funzione == b.funzione && UgualiFigli(a, b);
    case GenereEspr::Aggregato:
      return a.aggregazione == b.aggregazione && UgualiFigli(a, b);
    default:
      return a.operatore == b.operatore && UgualiFigli(a, b);
  }
}

void VerificaGruppi(const Espr& espr, const Selezione& s) {
  if (espr.genere == GenereEspr::Rinvio || espr.genere == GenereEspr::Aggregato) return;
  for (const EsprPtr& gruppo : s.gruppi) {
    if (UgualiEspr(espr, *gruppo)) return;
  }
  if (espr.genere == GenereEspr::Campo) {
    const bool propria = std::any_of(s.fonti.begin(), s.fonti.end(),
                                     [&](const auto& f) { return f.get() == espr.fonte; });
    if (!propria) return;
    Rifiuta(espr.posizione, "il campo \"" + espr.fonte->colonne[espr.colonna].nome +
                                "\" non è in GROUP BY e non sta in un aggregato");
  }
  for (const EsprPtr& figlio : espr.figli) VerificaGruppi(*figlio, s);
}

}  // namespace fenalto::sql
