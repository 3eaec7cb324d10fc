#include "duedates/reports/EstrattoConto.h"

#include <filesystem>

#include "core/reports/Rapporto.h"
#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {
namespace {

/// Due dates between two signs of life.
constexpr std::int64_t kOgniEstratte = 200;

/// From here on the address stands, as the window of an envelope wants it.
constexpr std::size_t kRientro = 64;
/// Characters of a line of the letter.
constexpr std::size_t kLargoTesto = 110;
/// The balance, the closing sentences and the signature stay together.
constexpr int kRigheChiusura = 11;

/// The firm's own model where the settings say so (`ECModulo`, with or without its ending).
std::string ModelloLettera(Ambiente& ambiente) {
  const std::string modulo(Rifila(ambiente.Config("ECModulo")));
  if (modulo.empty() || !ImpostazioneAttiva(ambiente, "ECTracciatoPersonal")) return "TiEC";
  const std::filesystem::path file = std::filesystem::path(modulo).filename();
  return UgualeTesto(file.extension().string(), ".mod") ? file.stem().string() : file.string();
}

std::string Accosta(const std::string& a, const std::string& b) {
  return std::string(Rifila(a + " " + b));
}

/// A letter to each party.
class LetteraEstratto {
 public:
  LetteraEstratto(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                  const SceltaEstrattoConto& scelta)
      : ambiente_(ambiente),
        scelta_(scelta),
        cliente_(UgualeTesto(scelta.scadenze.cfp, "C")),
        tabella_(Colonne()),
        rapporto_(ambiente, uscite) {
    rapporto_.Tavola(tabella_, "R_SCRITTATOT");
  }

  /// False when the user gave up, cancelled, or the output failed.
  bool Esegui(std::int64_t quante) {
    const reports::Cornice cornice{
        "estratto conto",          "Estratto conto al " + scelta_.alla.Testo(),
        ModelloLettera(ambiente_), 0,
        scelta_.stGrafico,         scelta_.xTar};
    if (!rapporto_.Apri(cornice, [this] { Testata(); })) return false;
    rapporto_.Avvia("Estratto conto", quante, kOgniEstratte);
    const bool tutte = ScorriScadenze(ambiente_, scelta_.scadenze, OrdineScadenze::PerConto,
                                      [this](const ScadenzaStampata& s) {
                                        if (!rapporto_.Passo()) return false;
                                        Scadenza(s);
                                        return !rapporto_.Interrotta();
                                      });
    if (!tutte) return false;
    ChiudiParte();
    return rapporto_.Fine();
  }

 private:
  enum class Sezione { Nessuna, Scadute, AScadere, Presentate, Pagate };
  struct Destinatario {
    std::string nome;
    std::string nome2;
    std::string indirizzo;
    std::string localita;
    std::string piva;
  };

  std::vector<reports::ColonnaDi<ScadenzaStampata>> Colonne() {
    using S = ScadenzaStampata;
    const std::string importo = " ###.###.###,##";
    return {
        {{"scadenza", "$$$$$$$$$$", "R_DTSCAD"}, &S::dt},
        {{"fattura", " $$$$$$$$", "R_NFAT", "", {}, false, true, true}, &S::NumeroFattura},
        {{"del", " $$$$$$$$$$", "R_DTFAT"}, &S::dtFat},
        {{"descrizione", " " + reports::Ripeti("$", 35), "R_DESCRIZIONE"}, &S::DescrizioneSegnata},
        {{"ritardo", " ######,", "R_GIORNI"},
         [this](const S& s) {
           const bool scaduta = sezione_ == Sezione::Scadute;
           return scaduta ? Valore(scelta_.alla.Giorni() - s.dt.Giorni()) : Valore();
         }},
        {{"importo", importo, "R_IMPORTO"}, &S::importo},
        {{"pagato", importo, "R_PAGATO"}, &S::pagato},
        {{"residuo", importo, "R_RESIDUO", "R_TOTRESIDUO", {}, true}, &S::Residuo}};
  }

  void Scadenza(const ScadenzaStampata& s) {
    if (!UgualeTesto(conto_, s.conto)) {
      ChiudiParte();
      conto_ = s.conto;
    }
    if (!s.Aperta()) return chiuse_.push_back(s);
    if (!aperta_) ApriParte(s);
    // In date order, so what is overdue comes first.
    const bool scaduta = s.dt < scelta_.alla;
    scaduta ? Apri(Sezione::Scadute, "Scadute") : Apri(Sezione::AScadere, "A scadere");
    (scaduta ? scaduto_ : aScadere_) += s.Residuo();
    Riga(s);
  }

  void ApriParte(const ScadenzaStampata& s) {
    rapporto_.Carta().NuovaPagina();
    prima_ = s;
    destinatario_ = LeggiDestinatario(s);
    aperta_ = true;
    paginaLettera_ = 0;
  }

  void ChiudiParte() {
    if (aperta_) {
      ChiudiSezione();
      Chiuse(Sezione::Presentate, "Ricevute bancarie presentate");
      Chiuse(Sezione::Pagate, scelta_.scadenze.pagateDal.Nulla()
                                  ? "Già pagate"
                                  : "Già pagate dal " + scelta_.scadenze.pagateDal.Testo());
      Chiusura();
    }
    aperta_ = false;
    chiuse_.clear();
    scaduto_ = aScadere_ = {};
  }

  /// Those presented to the bank, or those paid.
  void Chiuse(Sezione sezione, const std::string& titolo) {
    for (const ScadenzaStampata& s : chiuse_) {
      if (s.inDistinta != (sezione == Sezione::Presentate)) continue;
      Apri(sezione, titolo);
      Riga(s);
    }
    ChiudiSezione();
  }

  void Apri(Sezione sezione, const std::string& titolo) {
    if (sezione_ == sezione) return;
    ChiudiSezione();
    sezione_ = sezione;
    rapporto_.Riserva(4);
    rapporto_.Scritta("R_TITOLO", titolo, true);
  }

  void ChiudiSezione() {
    if (sezione_ == Sezione::Nessuna) return;
    const char* scritta = "totale a scadere";
    if (sezione_ == Sezione::Scadute) scritta = "totale scaduto";
    if (sezione_ == Sezione::Presentate) scritta = "totale presentato";
    if (sezione_ == Sezione::Pagate) scritta = "totale pagato";
    Totale(scritta, parziale_);
    rapporto_.Stacco();
    sezione_ = Sezione::Nessuna;
    parziale_ = {};
  }

  void Riga(const ScadenzaStampata& s) {
    if (sezione_ == Sezione::Pagate) {
      parziale_ += s.pagato;
    } else {
      parziale_ += s.inDistinta ? s.importo : s.Residuo();
    }
    // A page never begins with a total alone.
    rapporto_.Riserva(2);
    rapporto_.RigaTavola(tabella_.Celle(s), s.RinvioARegistrazione());
  }

  void Totale(const std::string& scritta, Importo importo) {
    reports::Somme somme(tabella_.Tutte().size());
    somme.back() = importo;
    rapporto_.Totale(scritta, somme);
  }

  void Capoverso(const std::string& testo) {
    for (const std::string& riga : rapporto_.InCampo("R_SCRITTA", testo, kLargoTesto)) {
      rapporto_.Scritta("R_SCRITTA", riga);
    }
  }

  void Chiusura() {
    rapporto_.Riserva(kRigheChiusura);
    const Importo saldo = scaduto_ + aScadere_;
    const bool aNoi = cliente_ != saldo.Negativo();
    rapporto_.Filo("=");
    Totale(std::string("SALDO AL ") + scelta_.alla.Testo() +
               (aNoi ? " A NOSTRO CREDITO" : " A VOSTRO CREDITO"),
           saldo.Assoluto());
    if (!scaduto_.Zero() && !aScadere_.Zero()) {
      Totale("di cui scaduto", scaduto_);
      Totale("di cui a scadere", aScadere_);
    }
    rapporto_.Vuota();
    if (!aNoi || !cliente_) {
      Capoverso(
          "Vi preghiamo di confrontare questo estratto con le Vostre scritture e di segnalarci "
          "cortesemente eventuali differenze.");
    } else if (scaduto_ > Importo()) {
      Capoverso(
          "Vi preghiamo cortesemente di verificare le partite elencate e di provvedere al "
          "pagamento di quelle già scadute. Se nel frattempo lo aveste già disposto, Vi "
          "ringraziamo e Vi preghiamo di non tenere conto di questo invito.");
    } else {
      Capoverso(
          "Vi preghiamo di verificare le partite elencate e di segnalarci cortesemente eventuali "
          "differenze; confidiamo nel pagamento alle scadenze indicate.");
    }
    Capoverso("Restiamo a disposizione per ogni chiarimento e porgiamo distinti saluti.");
    rapporto_.Vuota();
    rapporto_.Riga({Rientrata(), {"R_FIRMA"}}, {rapporto_.Ditta().ragSoc1_2});
  }

  /// Picture of a text beside the window of the envelope.
  [[nodiscard]] std::string Rientrata() const {
    return reports::Ripeti(" ", kRientro) + reports::Ripeti("$", rapporto_.Larghezza() - kRientro);
  }

  void Testata() {
    ++paginaLettera_;
    rapporto_.TestataDitta(paginaLettera_);
    rapporto_.Grafico() ? TestataModello() : TestataLettera();
  }

  void TestataLettera() {
    const auto destinatario = [this](const std::string& testo, bool grassetto = false) {
      if (!testo.empty()) rapporto_.Riga({Rientrata(), {}, grassetto}, {testo});
    };
    const std::string& piva = rapporto_.Ditta().piva;
    if (!piva.empty()) rapporto_.RigaTesto("Partita IVA " + piva);
    rapporto_.Vuota();
    destinatario("Spett.le");
    destinatario(destinatario_.nome, true);
    if (paginaLettera_ == 1) {
      destinatario(destinatario_.nome2, true);
      destinatario(destinatario_.indirizzo);
      destinatario(destinatario_.localita);
      destinatario(destinatario_.piva);
    }
    rapporto_.Vuota();
    rapporto_.RigaTesto(
        "ESTRATTO CONTO AL " + scelta_.alla.Testo() + "   (codice " + prima_.conto + ")", true);
    if (paginaLettera_ == 1) {
      rapporto_.Vuota();
      rapporto_.RigaTesto("Riepiloghiamo le partite che ci risultano aperte nei Vostri confronti:");
    }
    rapporto_.Titoli();
  }

  void TestataModello() {
    rapporto_.Titolo("TITOLO", "ESTRATTO CONTO AL " + scelta_.alla.Testo());
    rapporto_.Titolo("CODICE", "codice " + prima_.conto);
    rapporto_.Titolo("SPETTLE", "Spett.le");
    // The lines of an address leave no hole where one is missing, and a long name goes on in them.
    int quale = 0;
    for (const std::string* parte :
         {&destinatario_.nome, &destinatario_.nome2, &destinatario_.indirizzo,
          &destinatario_.localita, &destinatario_.piva}) {
      if (parte->empty()) continue;
      for (const std::string& riga : rapporto_.Carta().InCampo("NOME", *parte)) {
        rapporto_.Titolo(quale == 0 ? "NOME" : "INDIRIZZO" + std::to_string(quale), riga);
        ++quale;
      }
    }
    rapporto_.Titolo("PREMESSA",
                     paginaLettera_ == 1
                         ? "Riepiloghiamo le partite che ci risultano aperte nei Vostri confronti:"
                         : "Segue dalla pagina precedente:");
  }

  [[nodiscard]] Destinatario LeggiDestinatario(const ScadenzaStampata& s) const {
    Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
        std::string(
            "SELECT ragsoc1, ragsoc2, indirizzo, cap, localita, Prov, piva, CodFisc FROM ") +
        (cliente_ ? "Clienti" : "Fornitori") + " WHERE " + sql::Criterio("Cod", "=", s.conto));
    Destinatario d;
    if (rs.Eof()) {
      d.nome = s.ragsoc.empty() ? s.conto : s.ragsoc;
      return d;
    }
    d.nome = rs.Fields(0).Testo();
    d.nome2 = rs.Fields(1).Testo();
    d.indirizzo = rs.Fields(2).Testo();
    d.localita = Accosta(rs.Fields(3).Testo(), rs.Fields(4).Testo());
    if (const std::string prov = rs.Fields(5).Testo(); !prov.empty())
      d.localita += " (" + prov + ")";
    if (const std::string piva = rs.Fields(6).Testo(); !piva.empty()) {
      d.piva = "Partita IVA " + piva;
    } else if (const std::string fiscale = rs.Fields(7).Testo(); !fiscale.empty()) {
      d.piva = "Codice fiscale " + fiscale;
    }
    return d;
  }

  Ambiente& ambiente_;
  const SceltaEstrattoConto& scelta_;
  bool cliente_;
  reports::Tabella<ScadenzaStampata> tabella_;
  reports::Rapporto rapporto_;

  // The party at hand; its letter begins with the first open due date.
  std::string conto_;
  ScadenzaStampata prima_;
  Destinatario destinatario_;
  bool aperta_ = false;
  int paginaLettera_ = 0;
  Sezione sezione_ = Sezione::Nessuna;
  Importo parziale_;
  Importo scaduto_;
  Importo aScadere_;
  /// Closed ones come below, so they wait: a party has few since a day.
  std::vector<ScadenzaStampata> chiuse_;
};

}  // namespace

SceltaEstrattoConto EstrattoConto::Proposta() {
  SceltaEstrattoConto scelta;
  scelta.alla = ambiente_.Ora().Oggi();
  return scelta;
}

bool EstrattoConto::Stampa(const SceltaEstrattoConto& scelta) {
  std::optional<Rifiuto> difetto = DifettoScelta(scelta.scadenze);
  if (!difetto && scelta.alla.Nulla()) difetto = {"manca la data dell'estratto conto", "AllaData"};
  if (Rifiuta(ambiente_, difetto)) return false;
  // The paid ones alone make no letter.
  SceltaScadenze aperte = scelta.scadenze;
  aperte.anchePagate = false;
  const std::int64_t quante = reports::Trovati(
      ambiente_, [&] { return ContaScadenze(ambiente_, aperte); },
      [&] {
        return "nessun estratto conto da stampare: " + ScrittaScelta(aperte) + " di " +
               NomeClasse(aperte) + " non ce ne sono";
      });
  return quante != 0 && LetteraEstratto(ambiente_, uscite_, scelta)
                            .Esegui(ContaScadenze(ambiente_, scelta.scadenze));
}

}  // namespace fenalto::duedates
