#include "core/sql/Parser.h"

#include <array>
#include <charconv>

namespace fenalto::sql {

namespace {

/// Keywords of the dialect: as names they need brackets.
constexpr std::array<std::string_view, 36> kParole{
    "select", "from",   "where",  "group",    "order", "by",   "having", "union",  "all",
    "join",   "left",   "right",  "inner",    "outer", "on",   "as",     "and",    "or",
    "not",    "like",   "in",     "between",  "is",    "null", "values", "set",    "into",
    "insert", "update", "delete", "distinct", "asc",   "desc", "mod",    "exists", "full"};

bool EParolaChiave(std::string_view parola) {
  for (std::string_view chiave : kParole) {
    if (ParolaUguale(parola, chiave)) return true;
  }
  return false;
}

/// How a word is shown in a message.
std::string Mostra(const Segno& segno) {
  constexpr std::size_t kLungo = 40;
  if (segno.genere == GenereSegno::Fine) return "la fine del testo";
  return "\"" + std::string(segno.grezzo.substr(0, kLungo)) + "\"";
}

}  // namespace

void Rifiuta(std::size_t posizione, std::string motivo) {
  throw Rifiuto{ErroreSql{std::move(motivo), posizione}};
}

EsprPtr NuovaEspr(GenereEspr genere, std::size_t posizione) {
  return std::make_unique<Espr>(genere, posizione);
}

void Aggiungi(Espr& padre, EsprPtr figlio) {
  if (figlio->profondita >= padre.profondita) padre.profondita = figlio->profondita + 1;
  if (padre.profondita > kProfonditaMassima) {
    Rifiuta(padre.posizione, "espressione troppo annidata");
  }
  padre.figli.push_back(std::move(figlio));
}

Parser::Livello::Livello(Parser& parser) : parser_(parser) {
  if (++parser_.livello_ > kProfonditaMassima) {
    --parser_.livello_;
    sql::Rifiuta(parser_.Qui().posizione, "testo troppo annidato");
  }
}

Parser::Parser(std::string_view testo, bool incorpora) : incorpora_(incorpora) {
  Lessico lessico(testo);
  Segno segno;
  int letterali = 0;
  do {
    if (!lessico.Prossimo(segno)) throw Rifiuto{lessico.Errore()};
    segni_.push_back(segno);
    indici_.push_back(segno.ELetterale() ? letterali++ : -1);
  } while (segno.genere != GenereSegno::Fine);
}

const Segno& Parser::Dopo(std::size_t n) const {
  return segni_[std::min(i_ + n, segni_.size() - 1)];
}

bool Parser::EParola(const Segno& segno, std::string_view parola) {
  return segno.genere == GenereSegno::Parola && ParolaUguale(segno.grezzo, parola);
}

bool Parser::Prendi(char simbolo) {
  if (!E(simbolo)) return false;
  Avanza();
  return true;
}
bool Parser::Prendi(std::string_view parola) {
  if (!E(parola)) return false;
  Avanza();
  return true;
}

void Parser::Inatteso(const char* atteso) const {
  sql::Rifiuta(Qui().posizione, std::string("qui serve ") + atteso + ", non " + Mostra(Qui()));
}

void Parser::Pretendi(char simbolo) {
  if (Prendi(simbolo)) return;
  const std::array<char, 4> atteso{'"', simbolo, '"', '\0'};
  Inatteso(atteso.data());
}
void Parser::Pretendi(std::string_view parola) {
  if (Prendi(parola)) return;
  std::string maiuscola(parola);
  for (char& c : maiuscola) c = static_cast<char>(c - 32);
  Inatteso(maiuscola.c_str());
}

bool Parser::ENome() const {
  return Qui().genere == GenereSegno::Quadre ||
         (Qui().genere == GenereSegno::Parola && !EParolaChiave(Qui().grezzo));
}

std::string_view Parser::PretendiNome(const char* cosa) {
  if (!ENome()) Inatteso(cosa);
  const std::string_view nome = NomeDi(Qui());
  Avanza();
  return nome;
}

void Parser::PretendiFine() {
  Prendi(';');
  if (Qui().genere != GenereSegno::Fine) {
    sql::Rifiuta(Qui().posizione, "testo dopo la fine dell'istruzione: " + Mostra(Qui()));
  }
}

Albero Parser::LeggiIstruzione() {
  Albero albero;
  albero_ = &albero;
  if (E("select") || E('(')) {
    LeggiSelezione(albero);
  } else if (E("delete")) {
    LeggiCancellazione(albero);
  } else if (E("update")) {
    LeggiAggiornamento(albero);
  } else if (E("insert")) {
    LeggiInserimento(albero);
  } else if (ENome() && (Dopo().genere == GenereSegno::Fine ||
                         (Dopo().simbolo == ';' && Dopo().genere == GenereSegno::Simbolo))) {
    LeggiTabella(albero);
  } else if (Qui().genere == GenereSegno::Fine) {
    sql::Rifiuta(0, "testo vuoto");
  } else {
    sql::Rifiuta(Qui().posizione, "istruzione che il linguaggio non ha: " + Mostra(Qui()) +
                                      "; ci sono SELECT, INSERT, UPDATE e DELETE");
  }
  PretendiFine();
  albero_ = nullptr;
  return albero;
}

EsprPtr Parser::LeggiCondizione(Albero& albero) {
  albero_ = &albero;
  EsprPtr espr = LeggiEspr();
  PretendiFine();
  albero_ = nullptr;
  return espr;
}

void Parser::LeggiSelezione(Albero& albero) {
  albero.genere = Istruzione::Genere::Selezione;
  albero.query = LeggiQuery();
}

void Parser::LeggiTabella(Albero& albero) {
  albero.genere = Istruzione::Genere::Selezione;
  albero.query = std::make_unique<Query>();
  auto ramo = std::make_unique<Selezione>();
  ramo->voci.emplace_back();
  ramo->da = LeggiFonte();
  albero.query->rami.push_back(std::move(ramo));
}

void Parser::LeggiCancellazione(Albero& albero) {
  albero.genere = Istruzione::Genere::Cancellazione;
  Avanza();
  if (!Prendi('*') && !E("from")) {
    PretendiNome("FROM");
    Pretendi('.');
    Pretendi('*');
  }
  Pretendi("from");
  albero.posizioneTabella = Qui().posizione;
  albero.tabella = PretendiNome("il nome di una tabella");
  albero.alias = LeggiAlias();
  if (E(',') || E("inner") || E("left") || E("right") || E("join")) {
    sql::Rifiuta(Qui().posizione, "DELETE cancella da una tabella sola: usare WHERE ... IN");
  }
  if (Prendi("where")) albero.dove = LeggiEspr();
}

void Parser::LeggiAggiornamento(Albero& albero) {
  albero.genere = Istruzione::Genere::Aggiornamento;
  Avanza();
  albero.posizioneTabella = Qui().posizione;
  albero.tabella = PretendiNome("il nome di una tabella");
  if (!E("set")) albero.alias = LeggiAlias();
  if (E(',') || E("inner") || E("left") || E("right") || E("join")) {
    sql::Rifiuta(Qui().posizione, "UPDATE aggiorna una tabella sola");
  }
  Pretendi("set");
  do {
    Albero::Assegnazione a;
    a.posizione = Qui().posizione;
    a.nome = PretendiNome("il nome di un campo");
    if (Prendi('.')) a.nome = PretendiNome("il nome di un campo");
    // A condition on Null sets Null: what is set comes as conditions joined by commas.
    if (E("is") && EParola(Dopo(), "null")) {
      Avanza();
      a.espr = NuovaEspr(GenereEspr::Nullo, Qui().posizione);
      Avanza();
    } else {
      Pretendi('=');
      a.espr = LeggiEspr();
    }
    albero.assegnazioni.push_back(std::move(a));
  } while (Prendi(','));
  if (Prendi("where")) albero.dove = LeggiEspr();
}

void Parser::LeggiInserimento(Albero& albero) {
  albero.genere = Istruzione::Genere::Inserimento;
  Avanza();
  Pretendi("into");
  albero.posizioneTabella = Qui().posizione;
  albero.tabella = PretendiNome("il nome di una tabella");
  if (E('(') && !EParola(Dopo(), "select")) {
    Avanza();
    do {
      Albero::Assegnazione a;
      a.posizione = Qui().posizione;
      a.nome = PretendiNome("il nome di un campo");
      if (Prendi('.')) a.nome = PretendiNome("il nome di un campo");
      albero.assegnazioni.push_back(std::move(a));
    } while (Prendi(','));
    Pretendi(')');
  }
  if (Prendi("values")) {
    Pretendi('(');
    do {
      albero.valori.push_back(LeggiEspr());
    } while (Prendi(','));
    Pretendi(')');
    if (E(',')) sql::Rifiuta(Qui().posizione, "VALUES inserisce una riga sola");
    return;
  }
  if (!E("select") && !E('(')) Inatteso("VALUES o SELECT");
  albero.query = LeggiQuery();
}

std::unique_ptr<Query> Parser::LeggiQuery() {
  const Livello livello(*this);
  auto query = std::make_unique<Query>();
  query->posizione = Qui().posizione;
  if (Prendi('(')) {
    query = LeggiQuery();
    Pretendi(')');
    if (E("union") || E("order")) {
      sql::Rifiuta(Qui().posizione, "SELECT tra parentesi seguita da altro: togliere le parentesi");
    }
    return query;
  }
  query->rami.push_back(LeggiRamo());
  while (Prendi("union")) {
    query->unioneTutti.push_back(Prendi("all"));
    query->rami.push_back(LeggiRamo());
  }
  query->ordine = LeggiOrdine();
  return query;
}

std::unique_ptr<Selezione> Parser::LeggiRamo() {
  auto s = std::make_unique<Selezione>();
  s->posizione = Qui().posizione;
  Pretendi("select");
  if (Prendi("distinct") || Prendi("distinctrow")) {
    s->distinta = true;
  } else {
    Prendi("all");
  }
  if (E("top") && Dopo().genere == GenereSegno::Numero) {
    Avanza();
    std::int64_t n = 0;
    const std::string_view g = Qui().grezzo;
    const auto esito = std::from_chars(g.data(), g.data() + g.size(), n);
    if (esito.ec != std::errc() || esito.ptr != g.data() + g.size() || n < 0) {
      sql::Rifiuta(Qui().posizione, "TOP vuole un numero intero");
    }
    Avanza();
    if (E("percent")) sql::Rifiuta(Qui().posizione, "TOP n PERCENT non c'è nel linguaggio");
    s->primi = n;
  }
  LeggiVoci(*s);
  if (E("into")) sql::Rifiuta(Qui().posizione, "SELECT INTO non c'è nel linguaggio");
  if (Prendi("from")) s->da = LeggiDa();
  if (Prendi("where")) s->dove = LeggiEspr();
  if (Prendi("group")) {
    Pretendi("by");
    do {
      s->gruppi.push_back(LeggiEspr());
    } while (Prendi(','));
  }
  if (Prendi("having")) s->avendo = LeggiEspr();
  return s;
}

void Parser::LeggiVoci(Selezione& selezione) {
  do {
    selezione.voci.push_back(LeggiVoce());
  } while (Prendi(','));
}

Voce Parser::LeggiVoce() {
  Voce voce;
  voce.posizione = Qui().posizione;
  if (Prendi('*')) return voce;
  if (ENome() && Dopo().simbolo == '.' && Dopo(2).simbolo == '*' &&
      Dopo(2).genere == GenereSegno::Simbolo) {
    voce.tabellaStella = NomeDi(Qui());
    Avanza();
    Avanza();
    Avanza();
    return voce;
  }
  voce.espr = LeggiEspr();
  if (Prendi("as")) {
    voce.alias = PretendiNome("un nome dopo AS");
  } else if (ENome()) {
    voce.alias = PretendiNome("un nome");
  }
  return voce;
}

std::vector<VoceOrdine> Parser::LeggiOrdine() {
  std::vector<VoceOrdine> ordine;
  if (!Prendi("order")) return ordine;
  Pretendi("by");
  do {
    VoceOrdine voce;
    voce.espr = LeggiEspr();
    if (Prendi("desc")) {
      voce.discendente = true;
    } else {
      Prendi("asc");
    }
    ordine.push_back(std::move(voce));
  } while (Prendi(','));
  return ordine;
}

namespace {

std::unique_ptr<Da> Congiungi(TipoGiunzione tipo, std::size_t posizione, std::unique_ptr<Da> a,
                              std::unique_ptr<Da> b) {
  auto da = std::make_unique<Da>();
  da->genere = Da::Genere::Giunzione;
  da->posizione = posizione;
  da->giunzione = tipo;
  da->profondita = std::max(a->profondita, b->profondita) + 1;
  if (da->profondita > kProfonditaMassima) Rifiuta(posizione, "troppe tabelle congiunte");
  da->sinistra = std::move(a);
  da->destra = std::move(b);
  return da;
}

}  // namespace

std::unique_ptr<Da> Parser::LeggiDa() {
  auto da = LeggiGiunzioni();
  while (E(',')) {
    const std::size_t posizione = Qui().posizione;
    Avanza();
    da = Congiungi(TipoGiunzione::Virgola, posizione, std::move(da), LeggiGiunzioni());
  }
  return da;
}

bool Parser::LeggiTipoGiunzione(TipoGiunzione& tipo, bool& scambia) {
  scambia = false;
  tipo = TipoGiunzione::Interna;
  if (E("full") || E("cross") || E("natural")) {
    if (EParola(Dopo(), "join") || EParola(Dopo(), "outer")) {
      sql::Rifiuta(Qui().posizione, "giunzione che il linguaggio non ha: " + Mostra(Qui()));
    }
    return false;
  }
  if (Prendi("inner")) {
    Pretendi("join");
    return true;
  }
  if (E("left") || E("right")) {
    scambia = E("right");
    Avanza();
    Prendi("outer");
    Pretendi("join");
    tipo = TipoGiunzione::Sinistra;
    return true;
  }
  return Prendi("join");
}

std::unique_ptr<Da> Parser::LeggiGiunzioni() {
  const Livello livello(*this);
  auto da = LeggiFonte();
  TipoGiunzione tipo{};
  bool scambia = false;
  for (;;) {
    const std::size_t posizione = Qui().posizione;
    if (!LeggiTipoGiunzione(tipo, scambia)) return da;
    auto destra = LeggiFonte();
    // A right join is a left join the other way round.
    if (scambia) std::swap(da, destra);
    da = Congiungi(tipo, posizione, std::move(da), std::move(destra));
    Pretendi("on");
    da->condizione = LeggiEspr();
  }
}

std::unique_ptr<Da> Parser::LeggiFonte() {
  const Livello livello(*this);
  auto da = std::make_unique<Da>();
  da->posizione = Qui().posizione;
  if (E('(')) {
    if (EParola(Dopo(), "select")) {
      Avanza();
      da->genere = Da::Genere::SottoQuery;
      da->query = LeggiQuery();
      Pretendi(')');
      da->alias = LeggiAlias();
      return da;
    }
    Avanza();
    auto dentro = LeggiDa();
    Pretendi(')');
    return dentro;
  }
  da->nome = PretendiNome("il nome di una tabella");
  da->alias = LeggiAlias();
  return da;
}

std::string_view Parser::LeggiAlias() {
  if (Prendi("as")) return PretendiNome("un nome dopo AS");
  // Words of joins that the dialect lacks are no aliases.
  if (!ENome() || ((E("cross") || E("natural")) && EParola(Dopo(), "join"))) return {};
  return PretendiNome("un nome");
}

}  // namespace fenalto::sql
