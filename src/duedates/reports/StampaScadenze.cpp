#include "duedates/reports/StampaScadenze.h"

#include "core/reports/Cornice.h"
#include "core/values/Testo.h"
#include "duedates/reports/VisitaScadenze.h"

namespace fenalto::duedates {
namespace {

using Totale = SeguitoScadenze::Totale;

constexpr const char* kImporti = " ###.###.###,## ###.###.###,## ###.###.###,##";
constexpr const char* kRigaConto =
    "$$$$$$$$$$ ######## $$$$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ $$ $$$$$$$$$$";
constexpr const char* kColonneConto =
    "scadenza    fattura del        descrizione                           tp stato     "
    "        importo         pagato        residuo";
constexpr const char* kRigaData =
    "$$$$$$$$$$ $$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ ######## $$$$$$$$$$ "
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ $$ $$$$$$$$$$";
constexpr const char* kColonneData =
    "scadenza   codice   cliente/fornitore                   fattura del        "
    "descrizione                        tp stato     "
    "        importo         pagato        residuo";
constexpr std::size_t kLargoImporti = 45;

std::string TitoloDi(const SceltaStampaScadenze& scelta) {
  const bool clienti = UgualeTesto(scelta.scadenze.cfp, "C");
  if (scelta.ordine == OrdineScadenze::PerData) {
    return std::string("SCADENZE PER DATA - ") + (clienti ? "CLIENTI" : "FORNITORI");
  }
  return std::string("SCADENZE PER ") + (clienti ? "CLIENTE" : "FORNITORE");
}

/// The number of an invoice; nothing where there is none.
Valore Fattura(const ScadenzaStampata& s) {
  return s.nFat == 0 ? Valore() : Valore(s.nFat);
}

class TabulatoScadenze : private SeguitoScadenze {
 public:
  TabulatoScadenze(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                   const SceltaStampaScadenze& scelta)
      : ambiente_(ambiente),
        scelta_(scelta),
        perConto_(scelta.ordine == OrdineScadenze::PerConto),
        stampa_(ambiente, uscite),
        ditta_(reports::LeggiDatiDitta(ambiente)),
        colonne_(perConto_ ? kColonneConto : kColonneData),
        riga_(std::string(perConto_ ? kRigaConto : kRigaData) + kImporti),
        larghezza_(LunghezzaTesto(colonne_)),
        rigaTotale_(reports::Ripeti("$", larghezza_ - kLargoImporti) + kImporti) {}

  bool Esegui(std::int64_t quante) {
    const reports::Cornice cornice{
        perConto_ ? "scadenze per cliente/fornitore" : "scadenze per data",
        TitoloDi(scelta_),
        perConto_ ? "TiSPC" : "TiSPD",
        larghezza_,
        scelta_.stGrafico,
        scelta_.xTar};
    const reports::ModoStampa modo = reports::ApriStampa(stampa_, ambiente_, cornice);
    if (modo == reports::ModoStampa::Fermata) return false;
    grafico_ = modo == reports::ModoStampa::Grafico;
    stampa_.Intestazione([this] { Testata(); });
    return VisitaScadenze(ambiente_, scelta_, *this).Visita(quante) && stampa_.Fine();
  }

 private:
  [[nodiscard]] bool Fermato() const override { return stampa_.Interrotta(); }

  void Testata() {
    if (grafico_) {
      reports::CampiTestata(stampa_, ambiente_, ditta_, stampa_.NumeroPagina());
      stampa_.CampoModello("TITOLO", TitoloDi(scelta_));
      stampa_.CampoModello("TITOLO2", ScrittaScelta(scelta_.scadenze));
    } else {
      reports::TestataTesto(stampa_, ambiente_, ditta_, stampa_.NumeroPagina(), larghezza_);
      Intera(TitoloDi(scelta_) + "   " + ScrittaScelta(scelta_.scadenze), true);
      stampa_.Riga(reports::Ripeti("=", larghezza_));
      stampa_.Riga(colonne_);
      stampa_.Riga(reports::Ripeti("-", larghezza_));
    }
    // A party that goes on is named again.
    if (inParte_) Nome("  (segue)");
  }

  void Parte(const ScadenzaStampata& prima) override {
    inParte_ = false;
    parte_ = prima;
    stampa_.Riserva(grafico_ ? 4 : 5);
    Nome("");
    inParte_ = true;
  }

  void Nome(const char* seguito) {
    const std::string testo = parte_.conto + "  " + parte_.ragsoc + seguito;
    const Rinvio rinvio = AlConto(parte_.cfp, parte_.conto);
    if (!grafico_) {
      stampa_.Campo(1, testo);
      return stampa_.Riga(reports::Ripeti("$", larghezza_), rinvio, true);
    }
    stampa_.CampoModello("R_PARTE", testo, stampa_.YCorrente(), rinvio);
    stampa_.AvanzaRiga();
  }

  void Riga(const ScadenzaStampata& s) override {
    // A page never begins with a total alone.
    stampa_.Riserva(2);
    grafico_ ? RigaModello(s) : RigaTesto(s);
  }

  void RigaTesto(const ScadenzaStampata& s) {
    std::size_t n = 0;
    stampa_.Campo(++n, s.dt);
    if (!perConto_) {
      stampa_.Campo(++n, s.conto);
      stampa_.Campo(++n, s.ragsoc);
    }
    stampa_.Campo(++n, Fattura(s));
    stampa_.Campo(++n, s.dtFat);
    stampa_.Campo(++n, s.DescrizioneSegnata());
    stampa_.Campo(++n, s.tipo);
    stampa_.Campo(++n, s.StatoInParola());
    stampa_.Campo(++n, s.importo);
    stampa_.Campo(++n, s.pagato);
    stampa_.Campo(++n, s.Residuo());
    stampa_.Riga(riga_, s.RinvioARegistrazione());
  }

  void RigaModello(const ScadenzaStampata& s) {
    const double y = stampa_.YCorrente();
    const Rinvio rinvio = s.RinvioARegistrazione();
    const std::pair<const char*, Valore> campi[] = {
        {"R_DTSCAD", s.dt},
        {"R_CONTO", perConto_ ? Valore() : Valore(s.conto)},
        {"R_RAGSOC", perConto_ ? Valore() : Valore(s.ragsoc)},
        {"R_NFAT", s.nFat == 0 ? Valore() : Valore(std::to_string(s.nFat))},
        {"R_DTFAT", s.dtFat},
        {"R_DESCRIZIONE", s.DescrizioneSegnata()},
        {"R_TIPO", s.tipo},
        {"R_STATO", s.StatoInParola()},
        {"R_IMPORTO", s.importo},
        {"R_PAGATO", s.pagato},
        {"R_RESIDUO", s.Residuo()},
    };
    for (const auto& [nome, valore] : campi) stampa_.CampoModello(nome, valore, y, rinvio);
    stampa_.AvanzaRiga();
  }

  void Totali(Totale quale, const std::string& scritta, const TotaliScadenze& t) override {
    if (quale == Totale::MeseDiTutti && !riepilogo_) {
      riepilogo_ = true;
      inParte_ = false;
      stampa_.Riserva(4);
      Scritta("Riepilogo per mese");
    }
    if (quale == Totale::Generale) {
      inParte_ = false;
      stampa_.Riserva(2);
      grafico_ ? stampa_.Filetto() : stampa_.Riga(reports::Ripeti("=", larghezza_));
    }
    if (quale == Totale::Parte) inParte_ = false;
    Importi(scritta, t, quale != Totale::MeseDiTutti);
    const bool stacco = quale == Totale::Parte || (quale == Totale::Mese && !perConto_);
    if (stacco && stampa_.RigheLibere() > 0) {
      grafico_ ? stampa_.AvanzaRiga() : stampa_.Riga("");
    }
  }

  void Importi(const std::string& scritta, const TotaliScadenze& t, bool grassetto) {
    if (grafico_) {
      const double y = stampa_.YCorrente();
      stampa_.CampoModello("R_SCRITTATOT", scritta, y);
      stampa_.CampoModello("R_TOTIMPORTO", t.importo, y);
      stampa_.CampoModello("R_TOTPAGATO", t.pagato, y);
      stampa_.CampoModello("R_TOTRESIDUO", t.residuo, y);
      return stampa_.AvanzaRiga();
    }
    stampa_.Campo(1, scritta);
    stampa_.Campo(2, t.importo);
    stampa_.Campo(3, t.pagato);
    stampa_.Campo(4, t.residuo);
    stampa_.Riga(rigaTotale_, {}, grassetto);
  }

  void Scritta(const std::string& testo) {
    if (!grafico_) return Intera(testo, true);
    stampa_.CampoModello("R_PARTE", testo, stampa_.YCorrente());
    stampa_.AvanzaRiga();
  }

  void Intera(const std::string& testo, bool grassetto) {
    stampa_.Campo(1, testo);
    stampa_.Riga(reports::Ripeti("$", larghezza_), {}, grassetto);
  }

  Ambiente& ambiente_;
  const SceltaStampaScadenze& scelta_;
  bool perConto_;
  reports::Stampa stampa_;
  reports::DatiDitta ditta_;
  std::string colonne_;
  std::string riga_;
  std::size_t larghezza_;
  std::string rigaTotale_;
  bool grafico_ = false;
  bool riepilogo_ = false;
  bool inParte_ = false;
  ScadenzaStampata parte_;
};

class FoglioDiScadenze : public SeguitoScadenze {
 public:
  explicit FoglioDiScadenze(reports::Foglio& foglio) : foglio_(foglio) {}
  void Parte(const ScadenzaStampata& /*prima*/) override {}
  void Riga(const ScadenzaStampata& s) override {
    foglio_.righe.push_back({s.dt, s.conto, s.ragsoc, Fattura(s), s.dtFat, s.DescrizioneSegnata(),
                             s.tipo, s.StatoInParola(), s.importo, s.pagato, s.Residuo()});
  }
  void Totali(Totale /*quale*/, const std::string& scritta, const TotaliScadenze& t) override {
    foglio_.totali.push_back(foglio_.righe.size());
    foglio_.righe.push_back({Valore(), Valore(), scritta, Valore(), Valore(), Valore(), Valore(),
                             Valore(), t.importo, t.pagato, t.residuo});
  }

 private:
  reports::Foglio& foglio_;
};

}  // namespace

std::int64_t StampaScadenze::Pronte(const SceltaStampaScadenze& scelta) {
  if (const auto difetto = DifettoScelta(scelta.scadenze)) {
    ambiente_.Dialogo().Messaggio(*difetto, Icona::Avviso);
    return 0;
  }
  const std::int64_t quante = ContaScadenze(ambiente_, scelta.scadenze);
  if (quante == 0) {
    ambiente_.Dialogo().Messaggio(
        "nessuna scadenza da stampare: " + ScrittaScelta(scelta.scadenze) + " di " +
        NomeClasse(scelta.scadenze));
  }
  return quante;
}

bool StampaScadenze::Stampa(const SceltaStampaScadenze& scelta) {
  const std::int64_t quante = Pronte(scelta);
  return quante != 0 && TabulatoScadenze(ambiente_, uscite_, scelta).Esegui(quante);
}

reports::Foglio StampaScadenze::FoglioScadenze(const SceltaStampaScadenze& scelta) {
  const std::int64_t quante = Pronte(scelta);
  if (quante == 0) return {};
  reports::Foglio foglio;
  foglio.premessa = {{"ditta ", reports::LeggiDatiDitta(ambiente_).ragSoc1_2},
                     {"data stampa ", ambiente_.Ora().Oggi()},
                     {TitoloDi(scelta)},
                     {ScrittaScelta(scelta.scadenze)}};
  foglio.colonne = {{"Scadenza", Tipo::Data},
                    {"Codice"},
                    {"Cliente/fornitore"},
                    {"Fattura", Tipo::Intero},
                    {"Del", Tipo::Data},
                    {"Descrizione"},
                    {"Tipo"},
                    {"Stato"},
                    {"Importo", Tipo::Importo},
                    {"Pagato", Tipo::Importo},
                    {"Residuo", Tipo::Importo}};
  FoglioDiScadenze seguito(foglio);
  if (!VisitaScadenze(ambiente_, scelta, seguito).Visita(quante)) return {};
  return foglio;
}

}  // namespace fenalto::duedates
