#include "core/archives/CodiciNoti.h"

#include "core/archives/FonteCodici.h"
#include "core/values/Testo.h"

namespace fenalto::archives {

std::optional<Rifiuto> CodiceIgnoto(Ambiente& ambiente, const CampoDiCodice& campo,
                                    const std::string& codice) {
  if (Rifila(codice).empty() || Fonte(ambiente, campo.fonte)->Descrizione(codice)) {
    return std::nullopt;
  }
  return Rifiuto{(campo.didascalia.empty() ? campo.campo : campo.didascalia) + ": il codice " +
                     codice + " non esiste, sceglierne uno dall'elenco (F2)",
                 campo.campo};
}

std::optional<Rifiuto> CodiceIgnoto(
    Ambiente& ambiente, const records::DescrizioneForma& forma, const Scheda& record, bool nuovo,
    const std::function<records::StatoCampo(const std::string& nome)>& stato) {
  for (const records::CampoForma& campo : forma.campi) {
    if (campo.genere != records::GenereCampo::Codice || !record.Ha(campo.nome)) continue;
    if (!nuovo && !record.Modificata(campo.nome)) continue;
    const records::StatoCampo suo = stato(campo.nome);
    const bool raggiungibile =
        suo.visibile && suo.attivo && (campo.riquadro.empty() || stato(campo.riquadro).visibile);
    if (!raggiungibile) continue;
    auto ignoto = CodiceIgnoto(
        ambiente,
        {campo.nome, suo.didascalia.value_or(campo.didascalia), suo.fonte.value_or(campo.fonte)},
        record.Testo(campo.nome));
    if (ignoto) return ignoto;
  }
  return std::nullopt;
}

}  // namespace fenalto::archives
