// What the calculation, the store and the print of a settlement share.
#pragma once

#include <array>
#include <string_view>

#include "vat/settlement/LiquidazioneIva.h"

namespace fenalto::vat {

inline constexpr std::string_view kTipoVentilato = "07";
inline constexpr std::array kNoteVentilazione = {
    "*corrispettivi ventilati: la somma importi iva mese/trim può",
    " essere diversa dalla ventilazione calcolata sull'anno: ",
    " si deve quindi compensare nell'ultima liquidazione iva"};

/// Text of the giro that takes the pro-rata to the costs, before the period.
inline constexpr std::string_view kProRataIva = "Pro-rata IVA ";

/// "03/2024", "T2/2024": how the descriptions of the giros name a period.
std::string PeriodoBarrato(const PeriodoIva& periodo);

/// Erases the giros that an earlier definitive run of the period wrote, and writes them again.
/// `interessiPrima` is the interest that the run before took, zero for none.
void RiscriviGiri(Ambiente& ambiente, const Liquidazione& liquidazione,
                  const std::vector<TotaleRegistro>& registri, const DatiGiri& giri,
                  Importo interessiPrima, LogContabile& log);

}  // namespace fenalto::vat
