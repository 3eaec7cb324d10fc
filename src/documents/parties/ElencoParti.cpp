#include "documents/parties/ElencoParti.h"

#include <utility>

#include "core/reports/Rapporto.h"
#include "core/reports/TestoStampato.h"

namespace fenalto::documents {
namespace {

constexpr std::size_t kLarghezza = 132;
constexpr std::size_t kCodice = 10;
/// Characters of a name in the short and in the detailed layout.
constexpr std::size_t kNomeSintetico = 49;
constexpr std::size_t kNomeDettagliato = 57;
constexpr std::size_t kValore = 49;

std::string Testi(std::size_t n) {
  return reports::Ripeti("$", n);
}

std::string TitoloDi(const SceltaParti& scelta) {
  return std::string("ELENCO ") + (scelta.Clienti() ? "CLIENTI" : "FORNITORI") +
         (scelta.dettagliato ? " - ANAGRAFICA E CONTABILE" : "");
}

/// "TOTALE CLIENTI: 12"
std::string ScrittaTotale(const SceltaParti& scelta, std::int64_t quante) {
  return std::string("TOTALE ") + (scelta.Clienti() ? "CLIENTI: " : "FORNITORI: ") +
         std::to_string(quante);
}

/// The two lines of a name, without those that aren't filled.
std::vector<std::string> Nome(const ParteElencata& parte, std::size_t larghezza) {
  std::vector<std::string> nome = reports::InRighe(parte.Testo("ragsoc1"), larghezza);
  const std::string seconda = parte.Testo("ragsoc2");
  if (seconda.empty()) return nome;
  if (nome.front().empty()) nome.clear();
  for (std::string& riga : reports::InRighe(seconda, larghezza)) nome.push_back(std::move(riga));
  return nome;
}

/// A party on paper: the lines of its name, and what is known of it.
struct Voce {
  std::vector<std::string> nome;
  const ParteElencata* parte;
};

reports::ColonnaDi<Voce> ColonnaTesto(const char* titolo, std::size_t largo, const char* campo,
                                      const char* nome) {
  return {{titolo, " " + Testi(largo), campo},
          [nome](const Voce& v) { return v.parte->Testo(nome); }};
}

reports::Tabella<Voce> TabellaSintetica() {
  const auto telefono = [](const Voce& v) {
    const std::string primo = v.parte->Testo("telefono1");
    return primo.empty() ? v.parte->Testo("telefono2") : primo;
  };
  return reports::Tabella<Voce>(
      {{{"codice", Testi(kCodice), "R_COD"}, [](const Voce& v) { return v.parte->Testo("Cod"); }},
       {{"ragione sociale", " " + Testi(kNomeSintetico), "R_RAGSOC"},
        [](const Voce& v) { return v.nome.front(); }},
       ColonnaTesto("località", 28, "R_LOCALITA", "localita"),
       ColonnaTesto("pr", 2, "R_PROV", "Prov"),
       {{"telefono", " " + Testi(20), "R_TELEFONO"}, telefono},
       ColonnaTesto("partita IVA", 18, "R_PIVA", "piva")});
}

/// A name and its figures.
reports::Tabella<Voce> TabellaDettagliata(bool conSaldi) {
  const auto importo = [conSaldi](const char* titolo, const char* campo, auto valore) {
    const std::string sagoma = " " + reports::Ripeti("ç", 15);
    return reports::ColonnaDi<Voce>{
        {titolo, sagoma, campo, "", {}, false, conSaldi},
        [valore](const Voce& v) -> Valore { return std::invoke(valore, v.parte->saldo); }};
  };
  return reports::Tabella<Voce>(
      {{{"codice", Testi(kCodice), "R_PARTE"}, [](const Voce& v) { return v.parte->Testo("Cod"); }},
       {{"ragione sociale", " " + Testi(kNomeDettagliato), "R_NOME"},
        [](const Voce& v) { return v.nome.front(); }},
       importo("s.do iniz.", "R_SALDOINIZIALE", &ledger::Saldo::saldoIniziale),
       importo("dare", "R_DARE", &ledger::Saldo::totaleDare),
       importo("avere", "R_AVERE", &ledger::Saldo::totaleAvere),
       importo("saldo", "R_SALDO", &ledger::Saldo::Finale)});
}

/// All fields of the layout, the descriptions behind the codes, the figures.
reports::Tabella<ParteElencata> TabellaFoglio(const LetturaParti& lettura, int decimali) {
  using P = ParteElencata;
  std::vector<reports::ColonnaDi<P>> colonne;
  for (const CampoParte& campo : lettura.Campi()) {
    const char* nome = campo.nome;
    colonne.push_back({{"", "", "", "", {campo.titolo, campo.tipo}},
                       [nome](const P& p) { return p.Campo(nome); }});
    if (campo.tabella == nullptr) continue;
    colonne.push_back({{"", "", "", "", {campo.titoloDescrizione}},
                       [nome](const P& p) { return p.Descrizione(nome); }});
  }
  const auto importo = [&](const char* titolo, auto valore) {
    colonne.push_back({{"", "", "", "", {titolo, Tipo::Importo, decimali}, true},
                       [valore](const P& p) -> Valore { return std::invoke(valore, p.saldo); }});
  };
  if (!lettura.ConSaldi()) return reports::Tabella<P>(colonne);
  importo("Saldo iniziale", &ledger::Saldo::saldoIniziale);
  importo("Dare", &ledger::Saldo::totaleDare);
  importo("Avere", &ledger::Saldo::totaleAvere);
  importo("Saldo", &ledger::Saldo::Finale);
  return reports::Tabella<P>(colonne);
}

class TabulatoParti {
 public:
  TabulatoParti(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                const SceltaElencoParti& scelta)
      : scelta_(scelta),
        dettagliato_(scelta.parti.dettagliato),
        lettura_(ambiente, scelta.parti),
        tabella_(dettagliato_ ? TabellaDettagliata(lettura_.ConSaldi()) : TabellaSintetica()),
        rapporto_(ambiente, uscite),
        scritta_(ScrittaScelta(ambiente, scelta.parti)) {
    if (lettura_.ConSaldi()) scritta_ += " - saldi anno " + std::to_string(ambiente.Anno());
    rapporto_.Tavola(tabella_);
  }

  bool Esegui(std::int64_t quante) {
    const reports::Cornice cornice{scelta_.parti.Clienti() ? "elenco clienti" : "elenco fornitori",
                                   TitoloDi(scelta_.parti),
                                   dettagliato_ ? "TiAnaD" : "TiAnaS",
                                   kLarghezza,
                                   scelta_.stGrafico,
                                   scelta_.xTar};
    if (!rapporto_.Apri(cornice, [this] { Testata(); })) return false;
    const bool tutte = lettura_.Scorri(quante, [this](const ParteElencata& parte) {
      dettagliato_ ? Dettaglio(parte) : Sintetica(parte);
      return !rapporto_.Interrotta();
    });
    if (!tutte) return false;
    Totale();
    return rapporto_.Fine();
  }

 private:
  void Testata() {
    rapporto_.TestataDitta();
    rapporto_.Titolo("TITOLO", TitoloDi(scelta_.parti), true);
    rapporto_.Titolo("TITOLO2", scritta_);
    rapporto_.Titoli();
    if (!rapporto_.Grafico() || !lettura_.ConSaldi()) return;
    rapporto_.Titolo("T_INIZIALE", "s.do iniz.");
    rapporto_.Titolo("T_DARE", "dare");
    rapporto_.Titolo("T_AVERE", "avere");
    rapporto_.Titolo("T_SALDO", "saldo");
  }

  void Sintetica(const ParteElencata& parte) {
    ++quante_;
    const std::vector<std::string> nome = Nome(parte, kNomeSintetico);
    rapporto_.Riserva(static_cast<int>(nome.size()) + 1);
    Intestata({nome, &parte}, kNomeSintetico, "R_RAGSOC");
  }

  void Dettaglio(const ParteElencata& parte) {
    static const std::string kCoppia = "  " + Testi(14) + " " + Testi(kValore);
    static const reports::Fascia kRiga{
        kCoppia + kCoppia, {"R_DIDASCALIA1", "R_VALORE1", "R_DIDASCALIA2", "R_VALORE2"}};
    const std::vector<std::string> nome = Nome(parte, kNomeDettagliato);
    const std::vector<RigaParte> righe = RigheDettaglio(parte, kValore);
    if (quante_++ > 0) rapporto_.Stacco();
    // A party stands on one page, and a page never begins with the total alone.
    rapporto_.Riserva(static_cast<int>(nome.size() + righe.size()) + 2);
    generale_.saldo += parte.saldo;
    Intestata({nome, &parte}, kNomeDettagliato, "R_NOME");
    for (const RigaParte& riga : righe) {
      rapporto_.Riga(kRiga, {riga.sinistra.didascalia, riga.sinistra.valore, riga.destra.didascalia,
                             riga.destra.valore});
    }
  }

  /// A row of the table, and the lines of the name after its first.
  void Intestata(const Voce& voce, std::size_t largo, const char* campo) {
    rapporto_.RigaTavola(tabella_.Celle(voce), AlConto(scelta_.parti.cfp, voce.parte->Testo("Cod")),
                         dettagliato_);
    const reports::Fascia seguito{
        reports::Ripeti(" ", kCodice + 1) + Testi(largo), {campo}, dettagliato_};
    for (std::size_t i = 1; i < voce.nome.size(); ++i) rapporto_.Riga(seguito, {voce.nome[i]});
  }

  void Totale() {
    const std::string scritta = ScrittaTotale(scelta_.parti, quante_);
    rapporto_.Filo("=");
    if (!dettagliato_) return rapporto_.Scritta("R_SCRITTATOT", scritta, true);
    rapporto_.RigaTavola(tabella_.Celle({{scritta}, &generale_}), {}, true);
  }

  const SceltaElencoParti& scelta_;
  bool dettagliato_;
  LetturaParti lettura_;
  reports::Tabella<Voce> tabella_;
  reports::Rapporto rapporto_;
  std::string scritta_;
  std::int64_t quante_ = 0;
  ParteElencata generale_;  ///< nobody, with the figures of all
};

}  // namespace

std::int64_t ElencoParti::Pronte(const SceltaElencoParti& scelta) {
  if (Rifiuta(ambiente_, DifettoScelta(scelta.parti))) return 0;
  return reports::Trovati(
      ambiente_, [&] { return LetturaParti(ambiente_, scelta.parti).Conta(); },
      [&] {
        return std::string(scelta.parti.Clienti() ? "nessun cliente" : "nessun fornitore") +
               " da stampare: " + ScrittaScelta(ambiente_, scelta.parti);
      });
}

bool ElencoParti::Stampa(const SceltaElencoParti& scelta) {
  const std::int64_t quante = Pronte(scelta);
  return quante != 0 && TabulatoParti(ambiente_, uscite_, scelta).Esegui(quante);
}

reports::Foglio ElencoParti::FoglioParti(const SceltaElencoParti& scelta) {
  const std::int64_t quante = Pronte(scelta);
  if (quante == 0) return {};
  LetturaParti lettura(ambiente_, scelta.parti);
  const auto tabella = TabellaFoglio(lettura, ambiente_.Euro() ? 2 : 0);
  reports::Rapporto rapporto(ambiente_, uscite_);
  rapporto.Tavola(tabella, "", tabella.DelFoglio()[1].titolo);
  reports::Foglio foglio;
  rapporto.ApriFoglio(foglio, {{TitoloDi(scelta.parti)}, {ScrittaScelta(ambiente_, scelta.parti)}});
  if (lettura.ConSaldi()) foglio.premessa.push_back({"saldi anno ", ambiente_.Anno()});
  reports::Rotture<ParteElencata> somme(tabella, {});
  const bool tutte = lettura.Scorri(quante, [&](const ParteElencata& parte) {
    const std::vector<Valore> celle = tabella.Celle(parte);
    somme.Riga(parte, celle);
    rapporto.RigaTavola(celle);
    return true;
  });
  if (!tutte) return {};
  const auto quanti = static_cast<std::int64_t>(foglio.righe.size());
  rapporto.Totale(ScrittaTotale(scelta.parti, quanti), somme.Generali());
  return foglio;
}

}  // namespace fenalto::documents
