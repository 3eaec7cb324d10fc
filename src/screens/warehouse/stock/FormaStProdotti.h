// The form of the window of warehouse reports: the products chosen, what is shown of them, how
// their prices change.
#pragma once

#include <string>

#include "core/records/CampoRiga.h"
#include "core/records/DescrizioneForma.h"
#include "warehouse/stock/SituazioneMagazzino.h"
#include "warehouse/stock/VariazionePrezzi.h"

namespace fenalto::screens {

inline constexpr const char* kPaginaSituazione = "Situazione";
inline constexpr const char* kPaginaPrezzi = "Prezzi";

inline constexpr records::CampoRiga<warehouse::SceltaProdotti> kSceltaProdotti[] = {
    records::Campo<&warehouse::SceltaProdotti::daCodiceRiga>("DaCodiceRiga"),
    records::Campo<&warehouse::SceltaProdotti::aaCodiceRiga>("AaCodiceRiga"),
    records::Campo<&warehouse::SceltaProdotti::soloCategoriaMag>("SoloCategoriaMag"),
    records::Campo<&warehouse::SceltaProdotti::soloCategoriaMag2>("SoloCategoriaMag2"),
    records::Campo<&warehouse::SceltaProdotti::soloGruppoMag>("SoloGruppoMag"),
    records::Campo<&warehouse::SceltaProdotti::soloGruppoMag2>("SoloGruppoMag2"),
    records::Campo<&warehouse::SceltaProdotti::soloFornitore>("SoloFornitore")};

inline constexpr records::CampoRiga<warehouse::SceltaMagazzino> kSceltaMagazzino[] = {
    records::Campo<&warehouse::SceltaMagazzino::soloMag>("SoloMag"),
    records::Campo<&warehouse::SceltaMagazzino::finoAl>("FinoAl"),
    records::Campo<&warehouse::SceltaMagazzino::perDescrizione>("Ordine"),
    records::Campo<&warehouse::SceltaMagazzino::soloSottoScorta>("SoloSottoScorta"),
    records::Campo<&warehouse::SceltaMagazzino::soloEsistenti>("SoloEsistenti"),
    records::Campo<&warehouse::SceltaMagazzino::soloNegativi>("SoloNegativi"),
    records::Campo<&warehouse::SceltaMagazzino::fermiDal>("FermiDal"),
    records::Campo<&warehouse::SceltaMagazzino::mesiFermi>("MesiFermi"),
    records::Campo<&warehouse::SceltaMagazzino::stampoSoloDiversi0>("StampoSoloDiversi0")};

inline constexpr records::CampoRiga<warehouse::SceltaVariazione> kSceltaVariazione[] = {
    records::Campo<&warehouse::SceltaVariazione::percAumPr>("PercAumPr"),
    records::Campo<&warehouse::SceltaVariazione::base>("BasePrezzo"),
    records::Campo<&warehouse::SceltaVariazione::prezzo1>("Prezzo1"),
    records::Campo<&warehouse::SceltaVariazione::prezzo2>("Prezzo2"),
    records::Campo<&warehouse::SceltaVariazione::prezzo3>("Prezzo3"),
    records::Campo<&warehouse::SceltaVariazione::prezzoIva>("PrezzoIva")};

/// The field that ticks a column of the report.
std::string CampoColonna(const std::string& colonna);
/// Whether a field is one of those.
bool DiColonna(const std::string& campo);

/// The frames without a page stand above the pages.
records::DescrizioneForma FormaStProdotti();

}  // namespace fenalto::screens
