#include "core/archives/FonteCodici.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/PrimaLinea.h"
#include "core/values/Testo.h"

namespace fenalto::archives {
namespace {

class FonteTabella : public FonteCodici {
 public:
  FonteTabella(Ambiente& ambiente, DescrizioneFonte descrizione)
      : ambiente_(ambiente), d_(std::move(descrizione)) {}

  std::optional<std::string> Descrizione(const std::string& codice) override {
    if (codice.empty()) return std::nullopt;
    const Rs trovata = Leggi({d_.condizione, Uguale(codice)});
    if (trovata.Eof()) return std::nullopt;
    return Descritta(trovata);
  }

  std::string Canonico(const std::string& codice) override {
    const Rs trovata = Leggi({d_.condizione, Uguale(codice)});
    return trovata.Eof() ? codice : trovata.Fields(0).Testo();
  }

  std::string Archivio() const override { return d_.archivio; }
  std::string Ricerca() const override { return d_.ricerca; }

  std::string DaSegno(const std::string& testo) override {
    if (d_.segno.empty() || testo.empty()) return {};
    const std::string uguale = sql::Criterio(d_.segno, "=", testo);
    for (const std::string* elencati : {&d_.elencati, &d_.condizione}) {
      const Rs trovata = Leggi({d_.condizione, *elencati, uguale}, 1);
      if (!trovata.Eof()) return trovata.Fields(0).Testo();
    }
    return {};
  }

  std::vector<VoceCodice> Cerca(const std::string& testo, int massimo) override {
    if (massimo <= 0) return {};
    if (testo.empty()) return Elencate("", massimo);
    if (!d_.anche.empty()) return CercaParole(testo, massimo);
    const std::string inizia = sql::CriterioInizia(kChiave, testo);
    const auto comincia = [cercato = PerRicerca(testo)](const VoceCodice& voce) {
      return IniziaRicerca(voce.codice, cercato);
    };
    // One pass over the table finds all there is, unless there is more than is asked for: then
    // codes that begin with the text may come later, and a pass over the codes alone finds them.
    auto trovate = Elencate(
        "(" + inizia + " OR " + sql::CriterioContiene(d_.descrizione, testo) + ")", massimo);
    if (trovate.size() < static_cast<std::size_t>(massimo)) {
      std::stable_partition(trovate.begin(), trovate.end(), comincia);
      return trovate;
    }
    auto prime = Elencate(inizia, massimo);
    for (auto& voce : trovate) {
      if (prime.size() >= static_cast<std::size_t>(massimo)) break;
      if (!comincia(voce)) prime.push_back(std::move(voce));
    }
    return prime;
  }

 private:
  static constexpr const char* kChiave = "Cod";

  /// First what the text names whole, of those listed; then codes that begin with it; then those
  /// that have its words; last what it names whole that isn't listed, which was asked for then.
  std::vector<VoceCodice> CercaParole(const std::string& testo, int massimo) {
    std::string intero = Uguale(testo);
    if (!d_.segno.empty()) intero += " OR " + sql::Criterio(d_.segno, "=", testo);
    std::vector<VoceCodice> trovate = Elencate(intero, massimo);
    std::vector<VoceCodice> altre;
    for (Rs righe = Leggi({d_.condizione, intero}, massimo); !righe.Eof(); righe.MoveNext()) {
      altre.push_back({NzStr(righe.Fields(0)), Descritta(righe)});
    }
    // Within the bounds that the index knows; one that begins so but for an accent has its words.
    const std::string fine = testo + "\xF4\x8F\xBF\xBF";
    Aggiungi(
        trovate,
        Elencate(sql::Criterio(kChiave, ">=", testo) + " AND " + sql::Criterio(kChiave, "<", fine) +
                     " AND " + sql::CriterioInizia(kChiave, testo),
                 massimo),
        massimo);
    if (trovate.size() < static_cast<std::size_t>(massimo)) {
      std::vector<std::string> campi{kChiave, d_.descrizione};
      campi.insert(campi.end(), d_.anche.begin(), d_.anche.end());
      const auto sotto = [this](const std::string& parola) {
        return std::string(kChiave) + " IN (SELECT Cod FROM " + d_.tabellaSotto + " WHERE " +
               sql::CriterioContiene(d_.campoSotto, parola) + ")";
      };
      const std::string parole = d_.tabellaSotto.empty() ? sql::CriterioParole(campi, testo)
                                                         : sql::CriterioParole(campi, testo, sotto);
      // Those found already may be among them.
      if (!parole.empty()) Aggiungi(trovate, Elencate(parole, massimo), massimo);
    }
    Aggiungi(trovate, std::move(altre), massimo);
    return trovate;
  }

  /// Adds those that aren't there yet.
  static void Aggiungi(std::vector<VoceCodice>& trovate, std::vector<VoceCodice> altre,
                       int massimo) {
    for (VoceCodice& voce : altre) {
      if (trovate.size() >= static_cast<std::size_t>(massimo)) return;
      const bool gia = std::ranges::any_of(
          trovate, [&](const VoceCodice& una) { return UgualeTesto(una.codice, voce.codice); });
      if (!gia) trovate.push_back(std::move(voce));
    }
  }

  /// One line: what stands below the first is for paper.
  static std::string Descritta(const Rs& riga) { return PrimaLinea(NzStr(riga.Fields(1))); }

  static std::string Uguale(const std::string& codice) {
    return sql::Criterio(kChiave, "=", codice);
  }

  std::vector<VoceCodice> Elencate(const std::string& condizione, int massimo) {
    std::vector<VoceCodice> voci;
    for (Rs righe = Leggi({d_.condizione, d_.elencati, condizione}, massimo); !righe.Eof();
         righe.MoveNext()) {
      voci.push_back({NzStr(righe.Fields(0)), Descritta(righe)});
    }
    return voci;
  }

  /// Rows that meet all conditions; with `massimo` the first of them, in order of code.
  Rs Leggi(std::initializer_list<std::string> condizioni, int massimo = 0) {
    std::string testo = "SELECT ";
    if (massimo > 0) testo += "TOP " + std::to_string(massimo) + " ";
    testo += std::string(kChiave) + ", " + d_.descrizione + " FROM " + d_.tabella;
    const char* unione = " WHERE ";
    for (const auto& condizione : condizioni) {
      if (condizione.empty()) continue;
      testo += unione + ("(" + condizione + ")");
      unione = " AND ";
    }
    if (massimo > 0) testo += std::string(" ORDER BY ") + kChiave;
    return ambiente_.ArchivioDi(d_.chiave).Recordset(testo);
  }

  Ambiente& ambiente_;
  DescrizioneFonte d_;
};

class FonteDiVoci : public FonteCodici {
 public:
  explicit FonteDiVoci(std::vector<VoceCodice> voci) : voci_(std::move(voci)) {}

  std::optional<std::string> Descrizione(const std::string& codice) override {
    const auto trovata = Trova(codice);
    if (trovata == voci_.end()) return std::nullopt;
    return trovata->descrizione;
  }

  std::vector<VoceCodice> Cerca(const std::string& testo, int massimo) override {
    const std::string cercato = PerRicerca(testo);
    std::vector<VoceCodice> trovate;
    for (const bool inizio : {true, false}) {
      for (const auto& voce : voci_) {
        const bool inizia = PerRicerca(voce.codice).starts_with(cercato);
        const bool contiene = PerRicerca(voce.descrizione).find(cercato) != std::string::npos;
        if (inizio ? !inizia : inizia || !contiene) continue;
        if (static_cast<int>(trovate.size()) < massimo) trovate.push_back(voce);
      }
    }
    return trovate;
  }

  std::string Canonico(const std::string& codice) override {
    const auto trovata = Trova(codice);
    return trovata == voci_.end() ? codice : trovata->codice;
  }

 private:
  std::vector<VoceCodice>::const_iterator Trova(const std::string& codice) const {
    return std::ranges::find_if(
        voci_, [&codice](const VoceCodice& voce) { return UgualeTesto(voce.codice, codice); });
  }
  std::vector<VoceCodice> voci_;
};

/// Accounts of a class, whose search finds those of the others after them.
class FonteOvunque : public FonteCodici {
 public:
  FonteOvunque(Ambiente& ambiente, const std::string& nome) : propria_(Fonte(ambiente, nome)) {
    for (const char* classe : {"P", "C", "F"}) {
      const std::string altra = NomeFonteConti(classe);
      if (altra != nome) altre_.emplace_back(classe, Fonte(ambiente, altra));
    }
  }

  std::optional<std::string> Descrizione(const std::string& codice) override {
    return propria_->Descrizione(codice);
  }
  std::string Canonico(const std::string& codice) override { return propria_->Canonico(codice); }
  std::string Archivio() const override { return propria_->Archivio(); }

  std::vector<VoceCodice> Cerca(const std::string& testo, int massimo) override {
    auto trovate = propria_->Cerca(testo, massimo);
    for (const auto& [classe, fonte] : altre_) {
      const auto posto = massimo - static_cast<int>(trovate.size());
      for (auto& voce : fonte->Cerca(testo, posto)) {
        voce.classe = classe;
        trovate.push_back(std::move(voce));
      }
    }
    return trovate;
  }

  std::vector<VoceCodice> Altrove(const std::string& testo) override {
    std::vector<VoceCodice> esatte;
    std::vector<VoceCodice> simili;
    for (const auto& [classe, fonte] : altre_) {
      if (const auto descrizione = fonte->Descrizione(testo)) {
        esatte.push_back({fonte->Canonico(testo), *descrizione, classe});
      }
      for (auto& voce : fonte->Cerca(testo, 2)) {
        voce.classe = classe;
        simili.push_back(std::move(voce));
      }
    }
    return esatte.empty() ? simili : esatte;
  }

 private:
  std::shared_ptr<FonteCodici> propria_;
  std::vector<std::pair<std::string, std::shared_ptr<FonteCodici>>> altre_;  ///< by class
};

constexpr char kOvunque = '+';  // after the name of the source whose class comes first

}  // namespace

const std::vector<DescrizioneFonte>& Fonti() {
  static const std::vector<DescrizioneFonte> fonti{
      {"agenti", "Agenti", "AGENTI"},
      {.nome = "banche",
       .tabella = "Banche",
       .archivio = "BANCHE",
       .descrizione = "Nome",
       .chiave = "scadenzario"},
      {"categorie", "Categorie", "CATEGORIE"},
      {.nome = "categorieCespiti",
       .tabella = "CategorieCespiti",
       .archivio = "CATEGORIECESPITI",
       .descrizione = "DescrCat"},
      // Registrations of VAT have causals of their own, that are typed but not listed.
      {.nome = "causali",
       .tabella = "Causali",
       .archivio = "CAUSALI",
       .elencati = "cod<'1' or cod>'9zz'"},
      {"aspetti", "CodiciAspetto", "CODICIASPETTO"},
      {"categorieMag", "CategorieMag", "CATEGORIEMAG"},
      {"categorieMag2", "CategorieMag2", "CATEGORIEMAG2"},
      {"causaliCespiti", "CausaliCespiti"},
      {"causaliMag", "CausaliMag", "CAUSALIMAG"},
      {"causaliTrasporto", "CodiciCausaliTrasporto", "CODICICAUSALITRASPORTO"},
      {"causaliTutte", "Causali", "CAUSALI"},
      {"cespiti", "zCespitiCodici"},
      {.nome = "clienti", .tabella = "ZCLIENTI", .archivio = "CLIENTI", .descrizione = "RAGSOC1"},
      {"codiciIva", "CodiciIva", "CODICIIVA"},
      {"conti", "zConti", "CONTI", "CFP='P'"},
      {"contiTutti", "zConti", "CONTI"},
      {"contropartite", "Conti", "CONTI", "CFP='P'"},
      {.nome = "fornitori",
       .tabella = "ZFORNITORI",
       .archivio = "FORNITORI",
       .descrizione = "RAGSOC1"},
      {"gruppiMag", "GruppiMag", "GRUPPIMAG"},
      {"gruppiMag2", "GruppiMag2", "GRUPPIMAG2"},
      {"listini", "Listini", "LISTINI"},
      {"magazzini", "Magazzini", "MAGAZZINI"},
      {"mastri", "Mastri", "MASTRI"},
      {"pagamenti", "Pagamento", "CODICIPAGAMENTO"},
      // Customers and suppliers: which archive a code is of isn't known.
      {"parti", "ContiClientiFornitori", "", "CFP<>'P'"},
      {"porti", "CodiciPorto", "CODICIPORTO"},
      // A product out of use is taken when typed, and not proposed.
      {.nome = "prodotti",
       .tabella = "CodiciRiga",
       .archivio = "CODICIRIGA",
       .elencati = "FuoriUso=false",
       .anche = {"Barcode"},
       .tabellaSotto = "prodottiFor_r",
       .campoSotto = "codprfor",
       .segno = "Barcode",
       .ricerca = "VisCodiciRiga"},
      {"registri", "RegistriIva", "REGISTRIIVA"},
      {"registriTipo05", "RegistriIva", "", "Tipo='05'"},
      {"riepilogativiC", "Conti", "CONTI", "CFP='C'"},
      {"riepilogativiF", "Conti", "CONTI", "CFP='F'"},
      {"ritenute", "Ritenute", "RITENUTE"},
      {"tipiDocumento", "TipiFattureCli", "TIPIFATTURECLI"},
      {"tipiPagamento", "tipipagamento"},
      {"tipiRegistro", "TIPIregistriiva"},
      {"vettori", "Vettori", "VETTORI"},
  };
  return fonti;
}

const DescrizioneFonte& DescrizioneDiFonte(std::string_view nome) {
  for (const auto& fonte : Fonti()) {
    if (fonte.nome == nome) return fonte;
  }
  throw std::logic_error("fonte di codici sconosciuta: " + std::string(nome));
}

std::shared_ptr<FonteCodici> Fonte(Ambiente& ambiente, std::string_view nome) {
  if (nome.ends_with(kOvunque)) {
    nome.remove_suffix(1);
    return std::make_shared<FonteOvunque>(ambiente, std::string(nome));
  }
  return Fonte(ambiente, DescrizioneDiFonte(nome));
}

std::shared_ptr<FonteCodici> Fonte(Ambiente& ambiente, DescrizioneFonte descrizione) {
  return std::make_shared<FonteTabella>(ambiente, std::move(descrizione));
}

std::shared_ptr<FonteCodici> FonteInMemoria(std::vector<VoceCodice> voci) {
  return std::make_shared<FonteDiVoci>(std::move(voci));
}

std::string NomeFonteConti(const std::string& classe) {
  return classe == "C" ? "clienti" : classe == "F" ? "fornitori" : "conti";
}

std::string NomeFonteContiOvunque(const std::string& classe) {
  return NomeFonteConti(classe) + kOvunque;
}

std::string NomeFonteContropartite(const std::string& classe) {
  return classe == "C" ? "clienti" : classe == "F" ? "fornitori" : "contropartite";
}

std::shared_ptr<FonteCodici> FonteConti(Ambiente& ambiente, const std::string& classe) {
  return Fonte(ambiente, NomeFonteConti(classe));
}

std::shared_ptr<FonteCodici> FonteContropartite(Ambiente& ambiente, const std::string& classe) {
  return Fonte(ambiente, NomeFonteContropartite(classe));
}

}  // namespace fenalto::archives
