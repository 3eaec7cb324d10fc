#include "documents/parties/ElencoParti.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/reports/Cornice.h"
#include "core/values/Testo.h"
#include "ledger/journal/GiornaleInterno.h"

namespace fenalto::documents {
namespace {

constexpr std::size_t kLarghezza = 132;
constexpr std::size_t kCodice = 10;
// Short layout.
constexpr std::size_t kNomeSintetico = 49;
constexpr std::size_t kLocalita = 28;
constexpr std::size_t kProvincia = 2;
constexpr std::size_t kTelefono = 20;
constexpr std::size_t kPartitaIva = 18;
// Detailed layout: the name and four amounts, under it captions and values in two columns.
constexpr std::size_t kNomeDettagliato = 57;
constexpr std::size_t kImporto = 15;
constexpr std::size_t kDidascalia = 14;
constexpr std::size_t kValore = 49;

std::string Testi(std::size_t n) {
  return reports::Ripeti("$", n);
}

/// Pictures of the four amounts, each after a blank.
std::string QuattroImporti(const Ambiente& ambiente) {
  const std::string uno = " " + reports::Ripeti("ç", kImporto);
  return reports::PictureImporto(uno + uno + uno + uno, ambiente.Euro());
}

std::array<Importo, 4> Cifre(const ledger::Saldo& saldo) {
  return {saldo.saldoIniziale, saldo.totaleDare, saldo.totaleAvere, saldo.Finale()};
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

/// The first telephone that there is.
std::string Telefono(const ParteElencata& parte) {
  const std::string primo = parte.Testo("telefono1");
  return primo.empty() ? parte.Testo("telefono2") : primo;
}

/// The two lines of a name, without those that aren't filled.
std::vector<std::string> Nome(const ParteElencata& parte, std::size_t larghezza) {
  std::vector<std::string> nome = ledger::InRighe(parte.Testo("ragsoc1"), larghezza);
  const std::string seconda = parte.Testo("ragsoc2");
  if (seconda.empty()) return nome;
  if (nome.front().empty()) nome.clear();
  for (std::string& riga : ledger::InRighe(seconda, larghezza)) nome.push_back(std::move(riga));
  return nome;
}

class TabulatoParti {
 public:
  TabulatoParti(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                const SceltaElencoParti& scelta)
      : ambiente_(ambiente),
        scelta_(scelta),
        dettagliato_(scelta.parti.dettagliato),
        lettura_(ambiente, scelta.parti),
        stampa_(ambiente, uscite),
        ditta_(reports::LeggiDatiDitta(ambiente)),
        scritta_(ScrittaScelta(ambiente, scelta.parti)),
        importi_(QuattroImporti(ambiente)) {
    if (lettura_.ConSaldi()) scritta_ += " - saldi anno " + std::to_string(ambiente.Anno());
  }

  bool Esegui(std::int64_t quante) {
    const reports::Cornice cornice{scelta_.parti.Clienti() ? "elenco clienti" : "elenco fornitori",
                                   TitoloDi(scelta_.parti),
                                   dettagliato_ ? "TiAnaD" : "TiAnaS",
                                   kLarghezza,
                                   scelta_.stGrafico,
                                   scelta_.xTar};
    const reports::ModoStampa modo = reports::ApriStampa(stampa_, ambiente_, cornice);
    if (modo == reports::ModoStampa::Fermata) return false;
    grafico_ = modo == reports::ModoStampa::Grafico;
    stampa_.Intestazione([this] { Testata(); });
    const bool tutte = lettura_.Scorri(quante, [this](const ParteElencata& parte) {
      dettagliato_ ? Dettaglio(parte) : Sintetica(parte);
      return !stampa_.Interrotta();
    });
    if (!tutte) return false;
    Totale();
    return stampa_.Fine();
  }

 private:
  void Testata() {
    if (grafico_) return TestataModello();
    reports::TestataTesto(stampa_, ambiente_, ditta_, stampa_.NumeroPagina(), kLarghezza);
    Intera(TitoloDi(scelta_.parti), true);
    Intera(scritta_, false);
    stampa_.Riga(reports::Ripeti("=", kLarghezza));
    if (dettagliato_) {
      Colonne({{"codice", kCodice}, {"ragione sociale", kNomeDettagliato}},
              lettura_.ConSaldi()
                  ? "      s.do iniz.            dare           avere           saldo"
                  : "");
    } else {
      Colonne({{"codice", kCodice},
               {"ragione sociale", kNomeSintetico},
               {"località", kLocalita},
               {"pr", kProvincia},
               {"telefono", kTelefono},
               {"partita IVA", kPartitaIva}},
              "");
    }
    stampa_.Riga(reports::Ripeti("-", kLarghezza));
  }

  /// A line of column titles, each as wide as its column.
  void Colonne(std::initializer_list<std::pair<const char*, std::size_t>> colonne,
               const char* coda) {
    std::string riga;
    std::size_t n = 0;
    for (const auto& [titolo, larghezza] : colonne) {
      stampa_.Campo(++n, titolo);
      riga += (riga.empty() ? "" : " ") + Testi(larghezza);
    }
    stampa_.Riga(riga + coda);
  }

  void TestataModello() {
    reports::CampiTestata(stampa_, ambiente_, ditta_, stampa_.NumeroPagina());
    stampa_.CampoModello("TITOLO", TitoloDi(scelta_.parti));
    stampa_.CampoModello("TITOLO2", scritta_);
    if (!lettura_.ConSaldi()) return;
    for (const auto& [campo, titolo] :
         {std::pair("T_INIZIALE", "s.do iniz."), std::pair("T_DARE", "dare"),
          std::pair("T_AVERE", "avere"), std::pair("T_SALDO", "saldo")}) {
      stampa_.CampoModello(campo, titolo);
    }
  }

  // --- Short layout ------------------------------------------------------------------------------

  void Sintetica(const ParteElencata& parte) {
    ++quante_;
    const std::vector<std::string> nome = Nome(parte, kNomeSintetico);
    stampa_.Riserva(static_cast<int>(nome.size()) + 1);
    const std::pair<const char*, std::string> campi[] = {
        {"R_COD", parte.Testo("Cod")},           {"R_RAGSOC", nome.front()},
        {"R_LOCALITA", parte.Testo("localita")}, {"R_PROV", parte.Testo("Prov")},
        {"R_TELEFONO", Telefono(parte)},         {"R_PIVA", parte.Testo("piva")}};
    Riga(campi,
         Testi(kCodice) + " " + Testi(kNomeSintetico) + " " + Testi(kLocalita) + " " +
             Testi(kProvincia) + " " + Testi(kTelefono) + " " + Testi(kPartitaIva),
         RinvioA(parte));
    SeguitoNome(nome, kNomeSintetico, false);
  }

  // --- Detailed layout ---------------------------------------------------------------------------

  void Dettaglio(const ParteElencata& parte) {
    const std::vector<std::string> nome = Nome(parte, kNomeDettagliato);
    const std::vector<RigaParte> righe = RigheDettaglio(parte, kValore);
    if (quante_++ > 0 && stampa_.RigheLibere() > 0) {
      grafico_ ? stampa_.AvanzaRiga() : stampa_.Riga("");
    }
    // A party stands on one page, and a page never begins with the total alone.
    stampa_.Riserva(static_cast<int>(nome.size() + righe.size()) + 2);
    generale_ += parte.saldo;
    Intestata(parte.Testo("Cod"), nome.front(), parte.saldo, RinvioA(parte));
    SeguitoNome(nome, kNomeDettagliato, true);
    for (const RigaParte& riga : righe) {
      const std::pair<const char*, std::string> campi[] = {
          {"R_DIDASCALIA1", riga.sinistra.didascalia},
          {"R_VALORE1", riga.sinistra.valore},
          {"R_DIDASCALIA2", riga.destra.didascalia},
          {"R_VALORE2", riga.destra.valore}};
      const std::string coppia = "  " + Testi(kDidascalia) + " " + Testi(kValore);
      Riga(campi, coppia + coppia, {});
    }
  }

  /// A name and its figures, in bold.
  void Intestata(const std::string& codice, const std::string& nome, const ledger::Saldo& saldo,
                 const Rinvio& rinvio) {
    constexpr std::array kCampi = {"R_SALDOINIZIALE", "R_DARE", "R_AVERE", "R_SALDO"};
    const std::array<Importo, 4> cifre = Cifre(saldo);
    if (grafico_) {
      const double y = stampa_.YCorrente();
      stampa_.CampoModello("R_PARTE", codice, y, rinvio);
      stampa_.CampoModello("R_NOME", nome, y, rinvio);
      for (std::size_t i = 0; lettura_.ConSaldi() && i < cifre.size(); ++i) {
        stampa_.CampoModello(kCampi[i], cifre[i], y, rinvio);
      }
      return stampa_.AvanzaRiga();
    }
    stampa_.Campo(1, codice);
    stampa_.Campo(2, nome);
    for (std::size_t i = 0; i < cifre.size(); ++i) stampa_.Campo(i + 3, cifre[i]);
    stampa_.Riga(
        Testi(kCodice) + " " + Testi(kNomeDettagliato) + (lettura_.ConSaldi() ? importi_ : ""),
        rinvio, true);
  }

  // --- Both --------------------------------------------------------------------------------------

  /// The lines of a name after its first.
  void SeguitoNome(const std::vector<std::string>& nome, std::size_t larghezza, bool grassetto) {
    for (std::size_t i = 1; i < nome.size(); ++i) {
      if (grafico_) {
        stampa_.CampoModello(grassetto ? "R_NOME" : "R_RAGSOC", nome[i], stampa_.YCorrente());
        stampa_.AvanzaRiga();
        continue;
      }
      stampa_.Campo(1, nome[i]);
      stampa_.Riga(reports::Ripeti(" ", kCodice + 1) + Testi(larghezza), {}, grassetto);
    }
  }

  /// A line of texts: by the model's names, or one after the other in the picture.
  void Riga(std::span<const std::pair<const char*, std::string>> campi, const std::string& sagoma,
            const Rinvio& rinvio) {
    if (grafico_) {
      const double y = stampa_.YCorrente();
      for (const auto& [nome, valore] : campi) stampa_.CampoModello(nome, valore, y, rinvio);
      return stampa_.AvanzaRiga();
    }
    for (std::size_t i = 0; i < campi.size(); ++i) stampa_.Campo(i + 1, campi[i].second);
    stampa_.Riga(sagoma, rinvio);
  }

  void Totale() {
    const std::string scritta = ScrittaTotale(scelta_.parti, quante_);
    grafico_ ? stampa_.Filetto() : stampa_.Riga(reports::Ripeti("=", kLarghezza));
    if (dettagliato_) return Intestata("", scritta, generale_, {});
    if (!grafico_) return Intera(scritta, true);
    stampa_.CampoModello("R_SCRITTATOT", scritta, stampa_.YCorrente());
    stampa_.AvanzaRiga();
  }

  void Intera(const std::string& testo, bool grassetto) {
    stampa_.Campo(1, testo);
    stampa_.Riga(Testi(kLarghezza), {}, grassetto);
  }

  [[nodiscard]] Rinvio RinvioA(const ParteElencata& parte) const {
    return AlConto(scelta_.parti.cfp, parte.Testo("Cod"));
  }

  Ambiente& ambiente_;
  const SceltaElencoParti& scelta_;
  bool dettagliato_;
  LetturaParti lettura_;
  reports::Stampa stampa_;
  reports::DatiDitta ditta_;
  std::string scritta_;
  std::string importi_;
  bool grafico_ = false;
  std::int64_t quante_ = 0;
  ledger::Saldo generale_;
};

/// The amounts at the end of a row of the sheet.
void AggiungiSaldo(std::vector<Valore>& riga, const ledger::Saldo& saldo) {
  for (const Importo importo : Cifre(saldo)) riga.emplace_back(importo);
}

void AggiungiColonne(reports::Foglio& foglio, const LetturaParti& lettura, int decimali) {
  for (const CampoParte& campo : lettura.Campi()) {
    foglio.colonne.push_back({campo.titolo, campo.tipo});
    if (campo.tabella != nullptr) foglio.colonne.push_back({campo.titoloDescrizione});
  }
  if (!lettura.ConSaldi()) return;
  for (const char* titolo : {"Saldo iniziale", "Dare", "Avere", "Saldo"}) {
    foglio.colonne.push_back({titolo, Tipo::Importo, decimali});
  }
}

}  // namespace

std::int64_t ElencoParti::Pronte(const SceltaElencoParti& scelta) {
  if (const auto difetto = DifettoScelta(scelta.parti)) {
    ambiente_.Dialogo().Messaggio(*difetto, Icona::Avviso);
    return 0;
  }
  const std::int64_t quante = LetturaParti(ambiente_, scelta.parti).Conta();
  if (quante == 0) {
    ambiente_.Dialogo().Messaggio(
        std::string(scelta.parti.Clienti() ? "nessun cliente" : "nessun fornitore") +
        " da stampare: " + ScrittaScelta(ambiente_, scelta.parti));
  }
  return quante;
}

bool ElencoParti::Stampa(const SceltaElencoParti& scelta) {
  const std::int64_t quante = Pronte(scelta);
  return quante != 0 && TabulatoParti(ambiente_, uscite_, scelta).Esegui(quante);
}

reports::Foglio ElencoParti::FoglioParti(const SceltaElencoParti& scelta) {
  const std::int64_t quante = Pronte(scelta);
  if (quante == 0) return {};
  LetturaParti lettura(ambiente_, scelta.parti);
  reports::Foglio foglio;
  foglio.premessa = {{"ditta ", reports::LeggiDatiDitta(ambiente_).ragSoc1_2},
                     {"data stampa ", ambiente_.Ora().Oggi()},
                     {TitoloDi(scelta.parti)},
                     {ScrittaScelta(ambiente_, scelta.parti)}};
  if (lettura.ConSaldi()) foglio.premessa.push_back({"saldi anno ", ambiente_.Anno()});
  AggiungiColonne(foglio, lettura, ambiente_.Euro() ? 2 : 0);
  const std::vector<CampoParte> campi = lettura.Campi();
  ledger::Saldo generale;
  const bool tutte = lettura.Scorri(quante, [&](const ParteElencata& parte) {
    std::vector<Valore>& riga = foglio.righe.emplace_back();
    for (const CampoParte& campo : campi) {
      riga.push_back(parte.Campo(campo.nome));
      if (campo.tabella != nullptr) riga.emplace_back(parte.Descrizione(campo.nome));
    }
    if (lettura.ConSaldi()) AggiungiSaldo(riga, parte.saldo);
    generale += parte.saldo;
    return true;
  });
  if (!tutte) return {};
  foglio.totali.push_back(foglio.righe.size());
  std::vector<Valore>& totale = foglio.righe.emplace_back();
  totale.resize(foglio.colonne.size() - (lettura.ConSaldi() ? Cifre(generale).size() : 0));
  totale[1] = ScrittaTotale(scelta.parti, static_cast<std::int64_t>(foglio.righe.size()) - 1);
  if (lettura.ConSaldi()) AggiungiSaldo(totale, generale);
  return foglio;
}

}  // namespace fenalto::documents
