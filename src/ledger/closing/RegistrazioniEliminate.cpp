#include "ledger/closing/RegistrazioniEliminate.h"

#include <system_error>
#include <utility>
#include <vector>

#include "core/sql/Criterio.h"

namespace fenalto::ledger {

namespace {

/// Kinds of attachments that belong to a registration.
constexpr const char* kDiRegistrazioni = " where Tipo='PrimaNota' and IdRecord in (";

}  // namespace

std::int64_t RegistrazioniEliminate::Elimina(int anno, const std::string& criterio) {
  const std::string dove = sql::Criterio("Anno", "=", anno) + " and (" + criterio + ")";
  const std::string allegati =
      kDiRegistrazioni + ("select Articoli.ID from Articoli where " + dove) + ")";
  for (Rs rs = tessarc_.Recordset("select NomeFile from Allegati" + allegati); !rs.Eof();
       rs.MoveNext()) {
    // Only the name is taken from the row: a document never lies outside its folder.
    const auto nome = std::filesystem::path(rs.Fields(std::size_t{0}).Testo()).filename();
    if (!nome.empty()) file_.push_back(ambiente_.CartellaDocumenti() / nome);
  }
  tessarc_.Esegui("delete * from Allegati" + allegati);
  // The condition may look at what goes first: the numbers are told before, a range for those that
  // follow each other.
  std::vector<std::pair<std::int64_t, std::int64_t>> numeri;
  for (Rs rs = tessarc_.Recordset("select NumDoc from Articoli where " + dove + " order by NumDoc");
       !rs.Eof(); rs.MoveNext()) {
    const std::int64_t numero = rs.Fields(std::size_t{0}).Intero();
    if (numeri.empty() || numeri.back().second + 1 != numero) numeri.emplace_back(numero, numero);
    numeri.back().second = numero;
  }
  std::int64_t quante = 0;
  for (const auto& [primo, ultimo] : numeri) {
    const std::string loro = sql::Criterio("Anno", "=", anno) + " and " +
                             sql::Criterio("NumDoc", ">=", primo) + " and " +
                             sql::Criterio("NumDoc", "<=", ultimo);
    tessarc_.Esegui("delete * from Movimenti where " + loro);
    quante += tessarc_.Esegui("delete * from Articoli where " + loro);
  }
  return quante;
}

void RegistrazioniEliminate::EliminaFile() {
  for (const auto& file : file_) {
    std::error_code ignorato;
    std::filesystem::remove(file, ignorato);
  }
  file_.clear();
}

}  // namespace fenalto::ledger
