#include "core/sql/CatalogoProva.h"

#include <map>
#include <stdexcept>

#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "core/values/Testo.h"

namespace fenalto::prova {

namespace {

std::vector<std::string> Dividi(std::string_view testo, char separatore) {
  std::vector<std::string> parti;
  while (!testo.empty()) {
    const std::size_t i = testo.find(separatore);
    if (const std::string_view parte = Rifila(testo.substr(0, i)); !parte.empty())
      parti.emplace_back(parte);
    if (i == std::string_view::npos) break;
    testo.remove_prefix(i + 1);
  }
  return parti;
}

Tipo TipoDi(const std::string& nome) {
  static const std::map<std::string, Tipo> kTipi{
      {"testo", Tipo::Testo}, {"intero", Tipo::Intero}, {"importo", Tipo::Importo},
      {"reale", Tipo::Reale}, {"data", Tipo::Data},     {"sino", Tipo::Booleano}};
  const auto i = kTipi.find(nome);
  if (i == kTipi.end()) throw std::runtime_error("tipo sconosciuto: " + nome);
  return i->second;
}

}  // namespace

CatalogoProva::CatalogoProva(std::string_view testo) {
  for (const std::string& riga : Dividi(testo, '\n')) {
    if (riga.front() == '#') continue;
    const std::size_t i = riga.find(':');
    if (i == std::string::npos) throw std::runtime_error("riga senza due punti: " + riga);
    const std::string testa = riga.substr(0, i);
    const std::string_view coda = Rifila(std::string_view(riga).substr(i + 1));
    const std::size_t blank = testa.find(' ');
    const std::string parola = testa.substr(0, blank);
    const std::string nome = blank == std::string::npos ? "" : testa.substr(blank + 1);
    if (parola == "Vista")
      viste_.push_back({nome, std::string(coda)});
    else if (parola == "Chiave")
      Cerca(nome).chiave = Dividi(coda, ',');
    else if (parola == "Specchio")
      LeggiSpecchio(nome, coda);
    else
      LeggiTabella(testa, coda);
  }
}

void CatalogoProva::LeggiTabella(std::string_view nome, std::string_view campi) {
  sql::TabellaCatalogo tabella;
  tabella.nome = nome;
  tabella.nomeMotore = "\"main\".\"" + tabella.nome + "\"";
  for (const std::string& campo : Dividi(campi, ',')) {
    const std::vector<std::string> parole = Dividi(campo, ' ');
    sql::ColonnaCatalogo colonna;
    colonna.nome = parole.at(0);
    colonna.tipo = TipoDi(parole.at(1));
    for (std::size_t i = 2; i < parole.size(); ++i) {
      colonna.ammetteNull = colonna.ammetteNull || parole[i] == "null";
      colonna.contatore = colonna.contatore || parole[i] == "contatore";
      colonna.nascosta = colonna.nascosta || parole[i] == "nascosto";
    }
    tabella.colonne.push_back(std::move(colonna));
  }
  tabelle_.push_back(std::move(tabella));
}

void CatalogoProva::LeggiSpecchio(std::string_view tabelle, std::string_view resto) {
  const std::vector<std::string> nomi = Dividi(tabelle, ',');
  const std::vector<std::string> parti = Dividi(resto, ';');
  sql::Specchio specchio;
  specchio.tabella = nomi.at(1);
  specchio.chiave = Dividi(parti.at(0), ',');
  for (const std::string& coppia : Dividi(parti.at(1), ',')) {
    const std::size_t i = coppia.find('=');
    specchio.colonne.emplace_back(coppia.substr(0, i), coppia.substr(i + 1));
  }
  Cerca(nomi.at(0)).specchi.push_back(std::move(specchio));
}

sql::TabellaCatalogo& CatalogoProva::Cerca(std::string_view nome) {
  for (sql::TabellaCatalogo& tabella : tabelle_)
    if (UgualeTesto(tabella.nome, nome)) return tabella;
  throw std::runtime_error("tabella sconosciuta: " + std::string(nome));
}

const sql::TabellaCatalogo* CatalogoProva::Tabella(std::string_view nome) const {
  for (const sql::TabellaCatalogo& tabella : tabelle_)
    if (UgualeTesto(tabella.nome, nome)) return &tabella;
  return nullptr;
}

const sql::VistaCatalogo* CatalogoProva::Vista(std::string_view nome) const {
  for (const sql::VistaCatalogo& vista : viste_)
    if (UgualeTesto(vista.nome, nome)) return &vista;
  return nullptr;
}

std::string CatalogoProva::Schema() const {
  std::string sql;
  for (const sql::TabellaCatalogo& tabella : tabelle_) {
    sql += "CREATE TABLE " + tabella.nomeMotore + " (";
    std::string_view prima;
    for (const sql::ColonnaCatalogo& c : tabella.colonne) {
      sql.append(prima).append("\"").append(c.nome).append("\" ");
      const bool libera = c.ammetteNull || c.nascosta || c.contatore;
      if (c.tipo == Tipo::Testo) {
        sql += libera ? "TEXT COLLATE FENALTO" : "TEXT NOT NULL DEFAULT '' COLLATE FENALTO";
      } else {
        sql += c.tipo == Tipo::Reale ? "REAL" : "INTEGER";
        if (c.contatore) sql += " PRIMARY KEY";
        if (!libera) sql += " NOT NULL DEFAULT 0";
      }
      prima = ", ";
    }
    sql += ");\n";
  }
  return sql;
}

std::string Risposta::Testo() const {
  std::string testo;
  for (const std::vector<Valore>& riga : righe) {
    std::string_view prima;
    for (const Valore& valore : riga) {
      testo.append(prima).append(valore.Nullo() ? "~" : valore.Neutro());
      prima = "|";
    }
    testo += '\n';
  }
  return testo;
}

BancoProva::BancoProva(std::string_view catalogo) : catalogo_(catalogo) {
  if (sqlite3_open(":memory:", &connessione_) != SQLITE_OK) throw std::runtime_error("memoria");
  engine::sqlite::RegistraMotore(connessione_);
  Motore(catalogo_.Schema());
}

BancoProva::~BancoProva() {
  sqlite3_close(connessione_);
}

void BancoProva::Motore(const std::string& sql) const {
  if (sqlite3_exec(connessione_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(connessione_));
}

namespace {

void Lega(sqlite3_stmt* istruzione, int posto, const Valore& valore) {
  switch (valore.Tipo()) {
    case Tipo::Nullo:
      sqlite3_bind_null(istruzione, posto);
      break;
    case Tipo::Importo:
      sqlite3_bind_int64(istruzione, posto, valore.Importo().Decimillesimi());
      break;
    case Tipo::Reale:
      sqlite3_bind_double(istruzione, posto, valore.Reale());
      break;
    case Tipo::Testo:
      sqlite3_bind_text64(istruzione, posto, valore.RifTesto().data(), valore.RifTesto().size(),
                          SQLITE_TRANSIENT, SQLITE_UTF8);
      break;
    default:
      sqlite3_bind_int64(istruzione, posto, valore.Intero());
      break;
  }
}

/// Throws when the engine's value isn't of the kind that the type promises.
Valore ValoreDi(sqlite3_stmt* istruzione, int i, Tipo tipo) {
  const int genere = sqlite3_column_type(istruzione, i);
  if (genere == SQLITE_NULL) return {};
  const int atteso = tipo == Tipo::Testo ? SQLITE_TEXT : SQLITE_INTEGER;
  if (tipo == Tipo::Reale ? genere == SQLITE_TEXT : genere != atteso)
    throw std::runtime_error("colonna " + std::to_string(i) + ": il motore dà un altro tipo");
  const std::int64_t n = sqlite3_column_int64(istruzione, i);
  switch (tipo) {
    case Tipo::Booleano:
      return n != 0;
    case Tipo::Importo:
      return Importo::DaDecimillesimi(n);
    case Tipo::Reale:
      return sqlite3_column_double(istruzione, i);
    case Tipo::Data:
      return Data::DaGiorni(static_cast<std::int32_t>(n));
    case Tipo::Testo:
      return std::string(reinterpret_cast<const char*>(sqlite3_column_text(istruzione, i)),
                         static_cast<std::size_t>(sqlite3_column_bytes(istruzione, i)));
    default:
      return n;
  }
}

}  // namespace

sqlite3_stmt* BancoProva::Prepara(std::string_view testo, const std::string& prefisso,
                                  Risposta& risposta) const {
  const auto forma = sql::FormaDi(testo);
  auto tradotta = sql::Traduci(testo, catalogo_, engine::sqlite::DialettoSqlite());
  if (!tradotta || !forma) {
    const sql::ErroreSql& e = tradotta ? forma.Errore() : tradotta.Errore();
    risposta.errore = e.motivo;
    risposta.posizione = e.posizione;
    return nullptr;
  }
  risposta.istruzione = std::move(tradotta).Valore();
  const std::string sql = prefisso + risposta.istruzione.sql;
  sqlite3_stmt* istruzione = nullptr;
  if (sqlite3_prepare_v2(connessione_, sql.c_str(), -1, &istruzione, nullptr) != SQLITE_OK) {
    risposta.errore = std::string(sqlite3_errmsg(connessione_)) + " in " + sql;
    return nullptr;
  }
  int posto = 0;
  for (const sql::ParametroSql& p : risposta.istruzione.parametri) {
    const auto valore = sql::ValoreLegato(forma.Valore().letterali.at(p.letterale), p.legame);
    if (!valore) {
      risposta.errore = valore.Errore().motivo;
      sqlite3_finalize(istruzione);
      return nullptr;
    }
    Lega(istruzione, ++posto, valore.Valore());
  }
  return istruzione;
}

Risposta BancoProva::Esegui(std::string_view testo) const {
  Risposta risposta;
  sqlite3_stmt* istruzione = Prepara(testo, "", risposta);
  if (istruzione == nullptr) return risposta;
  const std::vector<sql::ColonnaUscita>& colonne = risposta.istruzione.colonne;
  int esito = sqlite3_step(istruzione);
  for (; esito == SQLITE_ROW; esito = sqlite3_step(istruzione)) {
    std::vector<Valore> riga;
    int i = 0;
    for (const sql::ColonnaUscita& c : colonne) riga.push_back(ValoreDi(istruzione, i++, c.tipo));
    risposta.righe.push_back(std::move(riga));
    if (!risposta.istruzione.tabellaBase.empty())
      risposta.identita.push_back(sqlite3_column_int64(istruzione, i));
  }
  if (esito != SQLITE_DONE) risposta.errore = sqlite3_errmsg(connessione_);
  sqlite3_finalize(istruzione);
  return risposta;
}

std::string BancoProva::Righe(std::string_view testo) const {
  const Risposta risposta = Esegui(testo);
  return risposta.errore.empty() ? risposta.Testo() : "ERRORE: " + risposta.errore;
}

std::string BancoProva::Cammino(std::string_view testo) const {
  Risposta risposta;
  sqlite3_stmt* istruzione = Prepara(testo, "EXPLAIN QUERY PLAN ", risposta);
  std::string cammino = risposta.errore;
  while (istruzione != nullptr && sqlite3_step(istruzione) == SQLITE_ROW) {
    constexpr int kDettaglio = 3;
    cammino += reinterpret_cast<const char*>(sqlite3_column_text(istruzione, kDettaglio));
    cammino += '\n';
  }
  sqlite3_finalize(istruzione);
  return cammino;
}

}  // namespace fenalto::prova
