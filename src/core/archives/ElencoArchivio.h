// The list of an archive: rows in pages, in order of code, narrowed by a text and by column.
#pragma once

#include <string>
#include <vector>

#include "core/archives/DescrizioneArchivio.h"
#include "core/archives/FonteElenco.h"

namespace fenalto::archives {

/// Columns of the list: `Cod`, the description, then the fields marked `elenco`.
std::vector<records::CampoForma> ColonneElenco(const DescrizioneArchivio& descrizione);

/// Reads rows of an archive without holding them. A search finds records whose code begins with the
/// text, or whose code or description holds it, without case and accents; columns of the filter are
/// those of ColonneElenco.
class ElencoArchivio : public FonteElenco {
 public:
  ElencoArchivio(Ambiente& ambiente, const DescrizioneArchivio& descrizione);

  /// At most `massimo` rows after the code `dopo` (from the first when empty), one value a column.
  /// With a text, those whose code begins with it aren't put first here: the order is by code.
  std::vector<std::vector<Valore>> Pagina(const FiltroElenco& filtro, const std::string& dopo,
                                          int massimo);
  void Comincia(const FiltroElenco& filtro) override;
  Righe Avanti() override;
  [[nodiscard]] bool Finita() const override { return finita_; }
  /// The code after (before) one in the filtered list; empty at its end.
  std::string Successivo(const FiltroElenco& filtro, const std::string& codice);
  std::string Precedente(const FiltroElenco& filtro, const std::string& codice);

 private:
  Ambiente& ambiente_;
  const DescrizioneArchivio& descrizione_;
  FiltroElenco filtro_;
  std::string ultimo_;  ///< code of the last row read
  bool finita_ = false;
};

/// What a column shows for a value: amounts with comma, dates as day/month/year, "sì" and "no".
std::string MostraColonna(const records::CampoForma& colonna, const Valore& valore);

/// Prints the list as filtered: company, title, day, columns. Progress can be cancelled.
void StampaElencoArchivio(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                          const DescrizioneArchivio& descrizione, const FiltroElenco& filtro);

}  // namespace fenalto::archives
