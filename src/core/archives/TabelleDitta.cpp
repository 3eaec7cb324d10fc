#include "core/archives/TabelleDitta.h"

namespace fenalto::archives {

namespace {

constexpr const char* kDiTessarc = "tessarc";
constexpr const char* kDiScadenzario = "scadenzario";
constexpr const char* kAnno = "Anno";

constexpr TabellaDitta kTabelle[] = {
    // What was recorded.
    {kDiTessarc, "Anni", Sorte::Vuota, kAnno},
    {kDiTessarc, "Articoli", Sorte::Vuota, kAnno},
    {kDiTessarc, "Movimenti", Sorte::Vuota, kAnno},
    {kDiTessarc, "Allegati", Sorte::Vuota},
    {kDiTessarc, "FattureCli", Sorte::Vuota, kAnno},
    {kDiTessarc, "FattureCli_r", Sorte::Vuota, kAnno},
    {kDiTessarc, "UltimaDataLibro", Sorte::Vuota, kAnno},
    {kDiTessarc, "UltProtStRegIva", Sorte::Vuota, kAnno},
    {kDiTessarc, "ChiusureIva", Sorte::Vuota, kAnno},
    {kDiTessarc, "TotaliIva", Sorte::Vuota, kAnno},
    {kDiTessarc, "TotaliIvaEP", Sorte::Vuota, kAnno},
    {kDiTessarc, "ChiusIva", Sorte::Vuota, kAnno},
    {kDiTessarc, "CreditoIva", Sorte::Vuota},
    {kDiTessarc, "OperazioniAnno", Sorte::Vuota, kAnno},
    // Numbers that were given once; those of lots go on when their year is gone.
    {kDiTessarc, "Contatori", Sorte::Vuota},
    // A due date outlives the year of its invoice.
    {kDiScadenzario, "Scadenze", Sorte::Vuota},
    {kDiScadenzario, "Pagamenti_R", Sorte::Vuota},
    {kDiScadenzario, "MovimentiBanca", Sorte::Vuota, kAnno},

    // What the user keeps or leaves.
    {kDiTessarc, "Mastri", Sorte::Scelta, nullptr, SceltaDati::Conti},
    {kDiTessarc, "Conti", Sorte::Scelta, nullptr, SceltaDati::Conti},
    {kDiTessarc, "ContiClientiFornitori", Sorte::Scelta, nullptr, SceltaDati::Conti, "CFP='P'"},
    {kDiTessarc, "Clienti", Sorte::Scelta, nullptr, SceltaDati::Clienti},
    {kDiTessarc, "Destinazioni_R", Sorte::Scelta, nullptr, SceltaDati::Clienti},
    {kDiTessarc, "ContiClientiFornitori", Sorte::Scelta, nullptr, SceltaDati::Clienti, "CFP='C'"},
    {kDiTessarc, "Fornitori", Sorte::Scelta, nullptr, SceltaDati::Fornitori},
    {kDiTessarc, "ContiClientiFornitori", Sorte::Scelta, nullptr, SceltaDati::Fornitori, "CFP='F'"},
    {kDiTessarc, "Cespiti", Sorte::Scelta, nullptr, SceltaDati::Cespiti},
    // The years of an asset are one history, of which none can be taken out.
    {kDiTessarc, "MovCesp_r", Sorte::Scelta, nullptr, SceltaDati::Cespiti},
    {kDiTessarc, "CodiciRiga", Sorte::Scelta, nullptr, SceltaDati::Prodotti},
    {kDiTessarc, "prodottiFor_r", Sorte::Scelta, nullptr, SceltaDati::Prodotti},
    {kDiTessarc, "Listini_r", Sorte::Scelta, nullptr, SceltaDati::Prodotti},
    {kDiTessarc, "Db_r", Sorte::Scelta, nullptr, SceltaDati::Distinte},
    {kDiTessarc, "OrdiniCli", Sorte::Scelta, nullptr, SceltaDati::OrdiniClienti},
    {kDiTessarc, "OrdiniCli_r", Sorte::Scelta, nullptr, SceltaDati::OrdiniClienti},
    {kDiTessarc, "OrdiniFor", Sorte::Scelta, nullptr, SceltaDati::OrdiniFornitori},
    {kDiTessarc, "OrdiniFor_r", Sorte::Scelta, nullptr, SceltaDati::OrdiniFornitori},
    {kDiTessarc, "Commesse", Sorte::Scelta, nullptr, SceltaDati::Commesse},
    {kDiTessarc, "Commesse_r", Sorte::Scelta, nullptr, SceltaDati::Commesse},

    // Codes.
    {kDiTessarc, "Ut", Sorte::Tenuta},
    {kDiTessarc, "Causali", Sorte::Tenuta},
    {kDiTessarc, "Categorie", Sorte::Tenuta},
    {kDiTessarc, "CodiciIva", Sorte::Tenuta},
    {kDiTessarc, "RegistriIva", Sorte::Tenuta},
    {kDiTessarc, "TIPIregistriiva", Sorte::Tenuta},
    {kDiTessarc, "Mesi", Sorte::Tenuta},
    {kDiTessarc, "tipipagamento", Sorte::Tenuta},
    {kDiTessarc, "Pagamento", Sorte::Tenuta},
    {kDiTessarc, "Pagamento_r", Sorte::Tenuta},
    {kDiTessarc, "Ritenute", Sorte::Tenuta},
    {kDiTessarc, "CategorieMag", Sorte::Tenuta},
    {kDiTessarc, "CategorieMag2", Sorte::Tenuta},
    {kDiTessarc, "GruppiMag", Sorte::Tenuta},
    {kDiTessarc, "GruppiMag2", Sorte::Tenuta},
    {kDiTessarc, "CodiciAspetto", Sorte::Tenuta},
    {kDiTessarc, "CodiciPorto", Sorte::Tenuta},
    {kDiTessarc, "CodiciCausaliTrasporto", Sorte::Tenuta},
    {kDiTessarc, "Vettori", Sorte::Tenuta},
    {kDiTessarc, "Agenti", Sorte::Tenuta},
    {kDiTessarc, "Magazzini", Sorte::Tenuta},
    {kDiTessarc, "CausaliMag", Sorte::Tenuta},
    {kDiTessarc, "TipiFattureCli", Sorte::Tenuta},
    {kDiTessarc, "Listini", Sorte::Tenuta},
    {kDiTessarc, "CategorieCespiti", Sorte::Tenuta},
    {kDiTessarc, "CausaliCespiti", Sorte::Tenuta},
    {kDiScadenzario, "Banche", Sorte::Tenuta},
};

}  // namespace

std::span<const TabellaDitta> TavolaTabelle() {
  return kTabelle;
}

}  // namespace fenalto::archives
