#include "warehouse/stock/SituazioneMagazzino.h"

#include <memory>

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"

namespace fenalto::warehouse {
namespace {

/// Columns of the archive in the order of Prodotti::Leggi.
constexpr const char* kColonneProdotto =
    "Cod, Descrizione, um, Barcode, PosMag, CategoriaMag, CategoriaMag2, GruppoMag, GruppoMag2, "
    "Scorta, QMinRiordino, CostoDigitato, Prezzo, Sc, Prezzo2, Sc2, Prezzo3, Sc3, PrezzoIva, "
    "Ricarico, DtAggPrezzi, PrezzoCampagna, ScCampagna, ValidDal, ValidAl, CodIva, FuoriUso";

Prodotto LeggiRiga(const Rs& rs) {
  std::size_t i = 0;
  const auto testo = [&] { return rs.Fields(i++).Testo(); };
  const auto importo = [&] { return rs.Fields(i++).Importo(); };
  const auto data = [&] { return rs.Fields(i++).Data(); };
  Prodotto p;
  p.cod = testo();
  p.descrizione = testo();
  p.um = testo();
  p.barcode = testo();
  p.posMag = testo();
  p.categoriaMag = testo();
  p.categoriaMag2 = testo();
  p.gruppoMag = testo();
  p.gruppoMag2 = testo();
  p.scorta = importo();
  p.qMinRiordino = importo();
  p.costoDigitato = importo();
  p.prezzo = importo();
  p.sc = importo();
  p.prezzo2 = importo();
  p.sc2 = importo();
  p.prezzo3 = importo();
  p.sc3 = importo();
  p.prezzoIva = importo();
  p.ricarico = importo();
  p.dtAggPrezzi = data();
  p.prezzoCampagna = importo();
  p.scCampagna = importo();
  p.validDal = data();
  p.validAl = data();
  p.codIva = testo();
  p.fuoriUso = rs.Fields(i++).Booleano();
  return p;
}

CostoFornitore Fornitore(const Rs& rs) {
  return {rs.Fields(1).Testo(), PrezzoNetto(rs.Fields(2).Importo(), rs.Fields(3).Importo(),
                                            rs.Fields(4).Importo(), rs.Fields(5).Importo())};
}

/// Since when a slow mover has not been unloaded; null when the choice doesn't ask.
Data FermiDal(Ambiente& ambiente, const SceltaMagazzino& scelta) {
  if (scelta.mesiFermi <= 0) return scelta.fermiDal;
  const Data oggi = scelta.finoAl.Nulla() ? ambiente.Ora().Oggi() : scelta.finoAl;
  return oggi.PiuMesi(-scelta.mesiFermi);
}

/// Where the figures of the products come from: one after the other in order of code, or each by
/// itself.
class Figure {
 public:
  virtual ~Figure() = default;
  virtual Esistenza EsistenzaDi(const std::string& prodotto) = 0;
  virtual Costi CostiDi(const std::string& prodotto) = 0;
  virtual std::vector<CostoFornitore> FornitoriDi(const std::string& prodotto) = 0;
  /// Unloaded since the day that slow movers weren't, in whichever year.
  virtual bool Scaricato(const std::string& prodotto) = 0;
};

constexpr const char* kFornitori =
    "SELECT Cod, Fornitore, Prezzo, Sc1, Sc2, Sc3 FROM prodottiFor_r ";

std::string Scarichi(const SceltaMagazzino& scelta, Data dal) {
  std::string testo = "FROM FattureCli_r WHERE CS='S' AND " + sql::Criterio("Dt", ">=", dal);
  if (!scelta.finoAl.Nulla()) testo += " AND " + sql::Criterio("Dt", "<=", scelta.finoAl);
  if (!scelta.soloMag.empty()) testo += " AND " + sql::Criterio("Mag", "=", scelta.soloMag);
  return testo;
}

class FigureInSerie : public Figure {
 public:
  FigureInSerie(Ambiente& ambiente, const SceltaMagazzino& scelta, bool conFornitori, Data fermiDal)
      : esistenze_(ambiente, scelta.Filtro()), costi_(ambiente, scelta.finoAl) {
    Archivio& tessarc = ambiente.ArchivioDi("tessarc");
    if (conFornitori) {
      fornitori_.emplace(tessarc.Recordset(std::string(kFornitori) + "ORDER BY Cod, Posi"));
    }
    if (!fermiDal.Nulla()) {
      scarichi_.emplace(tessarc.Recordset("SELECT CodiceRiga, Max(Dt) AS Ultimo " +
                                          Scarichi(scelta, fermiDal) +
                                          " GROUP BY CodiceRiga ORDER BY CodiceRiga"));
    }
  }
  Esistenza EsistenzaDi(const std::string& prodotto) override { return esistenze_.Di(prodotto); }
  Costi CostiDi(const std::string& prodotto) override { return costi_.Di(prodotto); }
  std::vector<CostoFornitore> FornitoriDi(const std::string& prodotto) override {
    std::vector<CostoFornitore> suoi;
    for (; fornitori_ && fornitori_->Al(prodotto); fornitori_->Avanti()) {
      suoi.push_back(Fornitore(fornitori_->Riga()));
    }
    return suoi;
  }
  bool Scaricato(const std::string& prodotto) override {
    return scarichi_ && scarichi_->Al(prodotto);
  }

 private:
  EsistenzeInSerie esistenze_;
  CostiInSerie costi_;
  std::optional<SerieCodici> fornitori_;
  std::optional<SerieCodici> scarichi_;
};

class FigureSingole : public Figure {
 public:
  FigureSingole(Ambiente& ambiente, const SceltaMagazzino& scelta, bool conFornitori, Data fermiDal)
      : ambiente_(ambiente), scelta_(scelta), conFornitori_(conFornitori), fermiDal_(fermiDal) {}
  Esistenza EsistenzaDi(const std::string& prodotto) override {
    return CalcoloEsistenza(ambiente_, prodotto, scelta_.Filtro());
  }
  Costi CostiDi(const std::string& prodotto) override {
    return CalcoloCosti(ambiente_, prodotto, scelta_.finoAl);
  }
  std::vector<CostoFornitore> FornitoriDi(const std::string& prodotto) override {
    std::vector<CostoFornitore> suoi;
    if (!conFornitori_) return suoi;
    Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
        kFornitori + ("WHERE " + sql::Criterio("Cod", "=", prodotto)) + " ORDER BY Cod, Posi");
    for (; !rs.Eof(); rs.MoveNext()) suoi.push_back(Fornitore(rs));
    return suoi;
  }
  bool Scaricato(const std::string& prodotto) override {
    if (fermiDal_.Nulla()) return false;
    return !ambiente_.ArchivioDi("tessarc")
                .Recordset("SELECT TOP 1 Num " + Scarichi(scelta_, fermiDal_) + " AND " +
                           sql::Criterio("CodiceRiga", "=", prodotto))
                .Eof();
  }

 private:
  Ambiente& ambiente_;
  const SceltaMagazzino& scelta_;
  bool conFornitori_;
  Data fermiDal_;
};

/// Whether the figures of a product are among those asked for; costs aren't read for the others.
bool Cercato(const SceltaMagazzino& scelta, const RigaMagazzino& riga) {
  const Importo esistenza = riga.esistenza.esistenza;
  if (scelta.soloSottoScorta && esistenza >= riga.prodotto.scorta) return false;
  if (scelta.soloEsistenti && esistenza.Zero()) return false;
  return !scelta.soloNegativi || esistenza.Negativo();
}

}  // namespace

Importo RigaMagazzino::PrezzoRicaricato() const {
  return costi.ultimo + costi.ultimo.Percento(prodotto.ricarico);
}

std::optional<Rifiuto> DifettoScelta(const SceltaMagazzino& scelta) {
  if (scelta.colonne.empty())
    return Rifiuto{"scegliere almeno una colonna da stampare", "Col_codice"};
  if (scelta.mesiFermi < 0)
    return Rifiuto{"i mesi senza scarichi non possono essere meno di zero", "MesiFermi"};
  if (scelta.mesiFermi > 0 && !scelta.fermiDal.Nulla()) {
    return Rifiuto{"indicare la data o i mesi senza scarichi, non tutti e due", "MesiFermi"};
  }
  return std::nullopt;
}

std::string ScrittaMagazzino(const SceltaMagazzino& scelta) {
  std::string testo = ScrittaProdotti(scelta.prodotti);
  const auto aggiungi = [&](bool quando, const std::string& scritta) {
    if (quando) testo += ", " + scritta;
  };
  aggiungi(!scelta.soloMag.empty(), "magazzino " + scelta.soloMag);
  aggiungi(scelta.soloSottoScorta, "sotto scorta");
  aggiungi(scelta.soloEsistenti, "con esistenza diversa da zero");
  aggiungi(scelta.soloNegativi, "con esistenza negativa");
  aggiungi(!scelta.fermiDal.Nulla(), "senza scarichi dal " + scelta.fermiDal.Testo());
  aggiungi(scelta.mesiFermi > 0, "senza scarichi da " + std::to_string(scelta.mesiFermi) +
                                     (scelta.mesiFermi == 1 ? " mese" : " mesi"));
  return testo;
}

std::int64_t ContaProdotti(Ambiente& ambiente, const SceltaProdotti& scelta) {
  return ambiente.ArchivioDi("tessarc")
      .Singolo("SELECT Count(*) FROM CodiciRiga WHERE " + CondizioneProdotti(scelta))
      .Intero();
}

bool ScorriMagazzino(Ambiente& ambiente, const SceltaMagazzino& scelta, bool conFornitori,
                     const std::function<bool()>& visto,
                     const std::function<bool(const RigaMagazzino&)>& riga) {
  const Data fermiDal = FermiDal(ambiente, scelta);
  std::unique_ptr<Figure> figure;
  if (scelta.perDescrizione) {
    figure = std::make_unique<FigureSingole>(ambiente, scelta, conFornitori, fermiDal);
  } else {
    figure = std::make_unique<FigureInSerie>(ambiente, scelta, conFornitori, fermiDal);
  }
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      std::string("SELECT ") + kColonneProdotto + " FROM CodiciRiga WHERE " +
      CondizioneProdotti(scelta.prodotti) + " ORDER BY " +
      (scelta.perDescrizione ? "Descrizione, Cod" : "Cod"));
  for (; !rs.Eof(); rs.MoveNext()) {
    if (!visto()) return false;
    RigaMagazzino una;
    una.prodotto = LeggiRiga(rs);
    una.esistenza = figure->EsistenzaDi(una.prodotto.cod);
    if (!Cercato(scelta, una) || figure->Scaricato(una.prodotto.cod)) continue;
    una.costi = figure->CostiDi(una.prodotto.cod);
    una.fornitori = figure->FornitoriDi(una.prodotto.cod);
    const Importo esistenza = una.esistenza.esistenza;
    una.valoreDigitato = esistenza.Per(una.prodotto.costoDigitato);
    una.valoreUltimo = esistenza.Per(una.costi.ultimo);
    una.valoreMedio = esistenza.Per(una.costi.medio);
    if (!riga(una)) return false;
  }
  return true;
}

}  // namespace fenalto::warehouse
