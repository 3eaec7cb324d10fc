#include "warehouse/products/UsiProdotto.h"

#include <array>
#include <iterator>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/sql/CriterioDopo.h"
#include "core/values/PrimaLinea.h"

namespace fenalto::warehouse {
namespace {

/// A kind of uses: what is read, and the columns that it is ordered and told apart by.
struct Genere {
  const char* voci;
  const char* tabelle;
  const char* prodotto;  ///< column that holds the code
  std::array<const char*, 4> chiavi;
};

enum Passo : std::size_t {
  kDocumenti,
  kOrdiniClienti,
  kOrdiniFornitori,
  kListini,
  kCommesse,
  kSpese,
  kComponente,
  kDistinta
};

// In the order in which uses are told.
constexpr std::array<Genere, 8> kGeneri{{
    {"ANNO,DT,TIPODOC,NUMDOC", "FATTURECLI_R", "CODICERIGA", {"ANNO", "DT", "TIPODOC", "NUMDOC"}},
    {"DT,TIPODOC,NUMDOC", "ORDINICLI_R", "CODICERIGA", {"DT", "TIPODOC", "NUMDOC", nullptr}},
    {"DT,NUMDOC,TIPODOC", "ORDINIFOR_R", "CODICERIGA", {"DT", "NUMDOC", "TIPODOC", nullptr}},
    {"Listini_r.Cod, Listini.Descrizione",
     "Listini_r LEFT JOIN Listini ON Listini_r.Cod=Listini.Cod",
     "Listini_r.CodiceRiga",
     {"Listini_r.Cod", nullptr, nullptr, nullptr}},
    {"Commesse_r.NumDoc, Commesse_r.Dt, Clienti.ragsoc1",
     "Commesse_r LEFT JOIN Clienti ON Commesse_r.Cliente=Clienti.Cod",
     "Commesse_r.CodiceRiga",
     {"Commesse_r.NumDoc", nullptr, nullptr, nullptr}},
    {"Cod, ragsoc1", "Clienti", "SpRiBa", {"Cod", nullptr, nullptr, nullptr}},
    {"Db_r.Cod, CodiciRiga.Descrizione",
     "Db_r LEFT JOIN CodiciRiga ON Db_r.Cod=CodiciRiga.Cod",
     "Db_r.CodiceRiga",
     {"Db_r.Cod", nullptr, nullptr, nullptr}},
    {"COD", "DB_r", "COD", {"COD", nullptr, nullptr, nullptr}},
}};

std::vector<std::string> Chiavi(const Genere& genere) {
  std::vector<std::string> chiavi;
  for (const char* chiave : genere.chiavi) {
    if (chiave != nullptr) chiavi.emplace_back(chiave);
  }
  return chiavi;
}

std::string Elencate(const std::vector<std::string>& nomi) {
  std::string testo;
  for (const std::string& nome : nomi) testo += (testo.empty() ? "" : ",") + nome;
  return testo;
}

/// The columns read, each in the place where the keys stand in them.
Valore Campo(const Rs& riga, const std::string& nome) {
  const auto punto = nome.find('.');
  return riga.Fields(punto == std::string::npos ? nome : nome.substr(punto + 1));
}

}  // namespace

const std::string& UsiProdotto::DescrizioneTipo(const std::string& tipo) {
  const auto [posto, nuovo] = tipi_.try_emplace(tipo);
  if (nuovo) {
    posto->second =
        NzStr(ambiente_.Cerca("tessarc", "tipifatturecli", {{"Cod", tipo}}, "Descrizione"));
    if (posto->second.empty()) posto->second = tipo;
  }
  return posto->second;
}

UsoProdotto UsiProdotto::Voce(const Rs& riga) {
  UsoProdotto uso;
  const auto documento = [&](const char* funzione) {
    uso.dt = riga.Fields("DT").Data();
    uso.numero = riga.Fields("NUMDOC").Intero();
    uso.rinvio = AlNumero(funzione, uso.numero);
  };
  const auto ordine = [&](const std::string& parte) {
    const bool offerta = riga.Fields("TIPODOC").Testo() == "F";
    uso.uso = (offerta ? "OFFERTA " : "ORDINE ") + parte;
    uso.rinvio.classe = offerta ? "F" : "O";
  };
  switch (passo_) {
    case kDocumenti:
      documento("FattureCli");
      uso.tipo = riga.Fields("TIPODOC").Testo();
      uso.anno = static_cast<int>(riga.Fields("ANNO").Intero());
      uso.uso = DescrizioneTipo(uso.tipo);
      uso.rinvio.anno = uso.anno;
      uso.rinvio.classe = uso.tipo;
      break;
    case kOrdiniClienti:
      documento("OrdiniCli");
      ordine("CLIENTE");
      break;
    case kOrdiniFornitori:
      documento("OrdiniFor");
      ordine("FORNITORE");
      break;
    case kListini:
      uso.uso = "Listino " + riga.Fields(0).Testo() + " " + NzStr(riga.Fields(1));
      uso.rinvio = AllArchivio("LISTINI", riga.Fields(0).Testo());
      break;
    case kCommesse:
      uso.numero = riga.Fields(0).Intero();
      uso.dt = riga.Fields(1).Data();
      uso.uso = "COMMESSA " + std::to_string(uso.numero) + " del " + uso.dt.Testo() + "  cliente " +
                NzStr(riga.Fields(2));
      uso.rinvio = AlNumero("Commesse", uso.numero);
      break;
    case kSpese:
      uso.uso =
          "SPESE INCASSO RIBA SUL CLIENTE " + riga.Fields(0).Testo() + " " + NzStr(riga.Fields(1));
      uso.rinvio = AllArchivio("CLIENTI", riga.Fields(0).Testo());
      break;
    case kComponente:
      uso.uso = riga.Fields(0).Testo() + " " + PrimaLinea(NzStr(riga.Fields(1)));
      uso.rinvio = AllArchivio("CODICIRIGA", riga.Fields(0).Testo());
      break;
    default:
      uso.uso = " HA LA DISTINTA BASE";
      uso.rinvio = AllArchivio("DISTINTABASE", codice_);
      break;
  }
  return uso;
}

std::vector<UsoProdotto> UsiProdotto::Leggi(std::size_t massimo) {
  const Genere& genere = kGeneri[passo_];
  const std::vector<std::string> chiavi = Chiavi(genere);
  std::string testo = "select top " + std::to_string(massimo) + " " + genere.voci + " from " +
                      genere.tabelle + " where " + sql::Criterio(genere.prodotto, "=", codice_);
  if (!dopo_.empty()) {
    testo += " and " + sql::CriterioDopo({chiavi.begin(), chiavi.end()}, dopo_);
  }
  testo += std::string(" GROUP BY ") + genere.voci + " ORDER BY " + Elencate(chiavi);
  std::vector<UsoProdotto> usi;
  if (passo_ == kComponente && dopo_.empty()) usi.push_back({"entra nelle seguenti distinte base"});
  const std::size_t titoli = usi.size();
  for (Rs riga = ambiente_.ArchivioDi("tessarc").Recordset(testo); !riga.Eof(); riga.MoveNext()) {
    usi.push_back(Voce(riga));
    dopo_.clear();
    for (const std::string& chiave : chiavi) dopo_.push_back(Campo(riga, chiave));
  }
  if (usi.size() == titoli) usi.clear();
  return usi;
}

std::vector<UsoProdotto> UsiProdotto::Avanti(std::size_t massimo) {
  std::vector<UsoProdotto> usi;
  while (!Finiti() && usi.size() < massimo) {
    const std::size_t chiesti = massimo - usi.size();
    std::vector<UsoProdotto> altri = Leggi(chiesti);
    const bool finito = altri.size() < chiesti;
    usi.insert(usi.end(), std::make_move_iterator(altri.begin()),
               std::make_move_iterator(altri.end()));
    if (!finito) continue;
    ++passo_;
    dopo_.clear();
  }
  return usi;
}

}  // namespace fenalto::warehouse
