#include "vat/register/IvaInCorso.h"

#include <utility>

#include "core/sql/Criterio.h"
#include "vat/register/RegistroIvaUnico.h"

namespace fenalto::vat {
namespace {

/// Whether a document of the year stands in the period, or one of any year was collected in it.
bool HaDocumenti(Ambiente& ambiente, const PeriodoIva& periodo) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const auto nel = [&](const char* campo) {
    return sql::Criterio(campo, ">=", periodo.Primo()) + " AND " +
           sql::Criterio(campo, "<=", periodo.UltimoGiorno());
  };
  const Rs registrati =
      tessarc.Recordset("SELECT TOP 1 NumDoc FROM ZarticoliProtocollati WHERE " +
                        sql::Criterio("Anno", "=", periodo.anno) + " AND " + nel("Dt"));
  if (!registrati.Eof()) return true;
  const Rs incassati =
      tessarc.Recordset("SELECT TOP 1 NumDoc FROM ZarticoliSospese WHERE " + nel("DtIncasso"));
  return !incassati.Eof();
}

}  // namespace

std::optional<IvaInCorso> LeggiIvaInCorso(Ambiente& ambiente) {
  const Data oggi = ambiente.Ora().Oggi();
  std::vector<StatoPeriodo> stati;
  for (PeriodoIva& periodo : PeriodiIva(ambiente, ambiente.Anno())) {
    if (periodo.Annuale()) continue;
    const bool liquidato = ambiente.Esiste(
        "tessarc", "ChiusureIva", {{"Anno", periodo.anno}, {"MESETRIMESTRE", periodo.cod}});
    // A company that began in June has nothing to settle for May.
    const bool finito = periodo.UltimoGiorno() < oggi;
    if (!liquidato && finito && !HaDocumenti(ambiente, periodo)) continue;
    stati.push_back({std::move(periodo), liquidato});
  }
  auto scelto = ScegliPeriodoInVista(stati, oggi);
  if (!scelto) return std::nullopt;
  IvaInCorso iva;
  iva.periodo = std::move(scelto->periodo);
  iva.arretrati = std::move(scelto->arretrati);
  iva.versamento = GiornoVersamento(iva.periodo);
  iva.finito = iva.periodo.UltimoGiorno() < oggi;
  RegistroIvaUnico registro(ambiente);
  registro.GuardaPeriodo(iva.periodo);
  if (!iva.arretrati.empty()) {
    registro.Opzioni().liquidazione.creditoPrec = {};
    registro.Opzioni().liquidazione.piu = {};
  }
  const auto liquidazione = registro.Liquida();
  if (!liquidazione) {
    iva.errore = liquidazione.Errore().messaggio;
    return iva;
  }
  iva.importo = liquidazione.Valore().daVersare;
  iva.sottoMinimo = liquidazione.Valore().sottoMinimo;
  return iva;
}

}  // namespace fenalto::vat
