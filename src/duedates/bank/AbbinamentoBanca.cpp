#include "duedates/bank/AbbinamentoBanca.h"

#include <algorithm>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/registrations/ControlliData.h"

namespace fenalto::duedates {
namespace {

constexpr std::size_t kLetterePerParola = 4;
/// Rows between looks at the user's wish to stop.
constexpr int kPasso = 2'000;

// What speaks for a proposal.
constexpr int kPuntiEsatta = 50;   ///< one due date of that very amount
constexpr int kPuntiSomma = 40;    ///< the first ones together
constexpr int kPuntiTutto = 45;    ///< all that the party owes
constexpr int kPuntiQuasi = 15;    ///< but for a few cents
constexpr int kPuntiNome = 15;     ///< each word of the name in the description, at most twice
constexpr int kPuntiFattura = 20;  ///< the number of the invoice in the description
constexpr int kPuntiMinimi = 40;
constexpr std::int64_t kMassimoCentesimi = 200;

/// Words that tell no company from another.
bool Comune(const std::string& parola) {
  static const std::set<std::string> comuni = {
      "bonifico", "disposizione", "vostro",  "favore", "conto",  "corrente", "fattura", "fatture",
      "saldo",    "pagamento",    "societa", "srl",    "italia", "della",    "delle",   "dello"};
  return comuni.contains(parola);
}

bool Alfanumerico(char c) {
  const auto byte = static_cast<unsigned char>(c);
  constexpr unsigned char kNonAscii = 0x80;
  return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') || byte >= kNonAscii;
}

/// Runs of letters and digits, without case and accents.
std::vector<std::string> Parole(std::string_view testo) {
  std::vector<std::string> parole;
  std::string parola;
  for (const char c : PerRicerca(testo) + " ") {
    if (Alfanumerico(c)) {
      parola += c;
    } else if (!parola.empty()) {
      parole.push_back(std::exchange(parola, {}));
    }
  }
  return parole;
}

/// Whether the words stand in the line one after the other, as those of "2024/123" do.
bool DiSeguito(const std::vector<std::string>& linea, const std::vector<std::string>& parole) {
  return !parole.empty() && !std::ranges::search(linea, parole).empty();
}

std::vector<std::string> ParoleDelNome(std::string_view nome) {
  std::vector<std::string> parole;
  for (std::string& parola : Parole(nome)) {
    if (parola.size() >= kLetterePerParola && !Comune(parola)) parole.push_back(std::move(parola));
  }
  return parole;
}

/// The shortest run of due dates from the first whose rests make the amount; 0 for none.
std::size_t PrimeCheFanno(const std::vector<Scadenza>& scadenze, Importo importo) {
  Importo somma;
  for (std::size_t i = 0; i < scadenze.size(); ++i) {
    somma += scadenze[i].Residuo();
    if (somma == importo) return i + 1;
  }
  return 0;
}

Importo SommaResidui(const std::vector<Scadenza>& scadenze) {
  Importo somma;
  for (const Scadenza& s : scadenze) somma += s.Residuo();
  return somma;
}

void Motiva(PropostaBanca& proposta, int punti, const std::string& motivo) {
  proposta.punti += punti;
  if (!proposta.motivo.empty()) proposta.motivo += ", ";
  proposta.motivo += motivo;
}

}  // namespace

Importo PropostaBanca::Residuo() const {
  return SommaResidui(scadenze);
}

Importo AbbinamentoBanca::MassimoArrotondamento() {
  constexpr std::int64_t kCentesimo = Importo::kScala / 100;
  return Importo::DaDecimillesimi(kMassimoCentesimi * kCentesimo);
}

bool AbbinamentoBanca::Prepara() {
  parti_.clear();
  abbinate_.clear();
  Archivio& scadenzario = ambiente_.ArchivioDi("scadenzario");
  for (Rs r = scadenzario.Recordset("SELECT Chiave FROM MovimentiBanca"); !r.Eof(); r.MoveNext()) {
    abbinate_.insert(r.Fields("Chiave").Testo());
  }
  bool interrotta = false;
  const auto avanzamento = ambiente_.Dialogo().Avvia("Lettura scadenze aperte", 0);
  for (const char* classe : {"C", "F"}) {
    if (!interrotta) Leggi(classe, *avanzamento, interrotta);
  }
  Indicizza();
  return !interrotta;
}

void AbbinamentoBanca::Leggi(const std::string& cfp, Avanzamento& avanzamento, bool& interrotta) {
  std::map<std::string, std::size_t> dove;
  int lette = 0;
  Rs r = ambiente_.ArchivioDi("scadenzario")
             .Recordset("SELECT * FROM SCADENZE WHERE " + sql::Criterio("CFP", "=", cfp) + " AND " +
                        CondizioneAperta() + " ORDER BY Dt, Numero");
  for (; !r.Eof() && !interrotta; r.MoveNext()) {
    Scadenza scadenza = ScadenzaDi(r);
    const auto [voce, nuova] = dove.emplace(SenzaMaiuscole(scadenza.conto), parti_.size());
    if (nuova) parti_.push_back({cfp, scadenza.conto, "", {}, {}, {}});
    Parte& parte = parti_[voce->second];
    parte.residuo += scadenza.Residuo();
    parte.scadenze.push_back(std::move(scadenza));
    interrotta = ++lette % kPasso == 0 && !avanzamento.Avanza(lette);
  }
  r.mClose();
  Rs nomi = ambiente_.ArchivioDi("tessarc").Recordset(
      "SELECT Cod, Descrizione, Descrizione2 FROM ContiClientiFornitori WHERE " +
      sql::Criterio("CFP", "=", cfp));
  for (; !nomi.Eof(); nomi.MoveNext()) {
    const auto voce = dove.find(SenzaMaiuscole(nomi.Fields("Cod").Testo()));
    if (voce == dove.end()) continue;
    Parte& parte = parti_[voce->second];
    parte.nome = nomi.Fields("Descrizione").Testo();
    parte.parole = ParoleDelNome(parte.nome + " " + nomi.Fields("Descrizione2").Testo());
  }
}

void AbbinamentoBanca::Indicizza() {
  perImporto_.clear();
  perParola_.clear();
  for (std::size_t i = 0; i < parti_.size(); ++i) {
    std::set<Importo> importi;
    Importo somma;
    for (const Scadenza& s : parti_[i].scadenze) {
      importi.insert(s.Residuo());
      importi.insert(somma += s.Residuo());
    }
    for (const Importo importo : importi) perImporto_.emplace(importo, i);
    for (const std::string& parola : parti_[i].parole) perParola_.emplace(parola, i);
  }
}

bool AbbinamentoBanca::GiaAbbinata(const LineaEstratto& linea) const {
  return abbinate_.contains(linea.chiave);
}

AbbinamentoBanca::Indici AbbinamentoBanca::Candidate(const LineaEstratto& linea,
                                                     const std::string& cfp,
                                                     const std::set<std::string>& parole) const {
  std::set<std::size_t> trovate;
  const auto prendi = [&](std::size_t parte) {
    if (parti_[parte].cfp == cfp) trovate.insert(parte);
  };
  const auto [da, a] = perImporto_.equal_range(linea.importo.Assoluto());
  for (auto voce = da; voce != a; ++voce) prendi(voce->second);
  for (const std::string& parola : parole) {
    const auto [prima, dopo] = perParola_.equal_range(parola);
    for (auto voce = prima; voce != dopo; ++voce) prendi(voce->second);
  }
  return {trovate.begin(), trovate.end()};
}

bool AbbinamentoBanca::Scegli(const Parte& parte, Importo importo, const Nominata& nominata,
                              PropostaBanca& proposta) {
  const auto& scadenze = parte.scadenze;
  const auto una = [&](const auto& condizione) {
    const auto trovata = std::find_if(scadenze.begin(), scadenze.end(), condizione);
    if (trovata == scadenze.end()) return false;
    proposta.scadenze = {*trovata};
    return true;
  };
  const auto esatta = [&](const Scadenza& s) { return s.Residuo() == importo; };
  const auto vicina = [&](const Scadenza& s) {
    return (s.Residuo() - importo).Assoluto() <= MassimoArrotondamento();
  };
  // Of several due dates of the amount, the one whose invoice the line names.
  if (una([&](const Scadenza& s) { return esatta(s) && nominata(s); }) || una(esatta)) {
    Motiva(proposta, kPuntiEsatta, "importo esatto");
  } else if (parte.residuo == importo) {
    proposta.scadenze = scadenze;
    Motiva(proposta, kPuntiTutto, "tutte le scadenze aperte");
  } else if (const std::size_t prime = PrimeCheFanno(scadenze, importo); prime != 0) {
    proposta.scadenze.assign(scadenze.begin(),
                             scadenze.begin() + static_cast<std::ptrdiff_t>(prime));
    Motiva(proposta, kPuntiSomma, "somma delle prime " + std::to_string(prime) + " scadenze");
  } else if (una([&](const Scadenza& s) { return vicina(s) && nominata(s); }) || una(vicina)) {
    proposta.arrotondamento = proposta.Residuo() - importo;
    Motiva(proposta, kPuntiQuasi, "importo vicino");
  }
  return !proposta.scadenze.empty();
}

std::optional<PropostaBanca> AbbinamentoBanca::Confronta(const Parte& parte,
                                                         const LineaEstratto& linea,
                                                         const std::vector<std::string>& elenco,
                                                         const std::set<std::string>& parole) {
  PropostaBanca proposta{parte.cfp, parte.conto, parte.nome, {}, {}, "", 0};
  const Nominata nominata = [&](const Scadenza& s) { return DiSeguito(elenco, Parole(s.nFat)); };
  if (!Scegli(parte, linea.importo.Assoluto(), nominata, proposta)) return std::nullopt;
  const auto nelTesto = [&](const std::string& parola) { return parole.contains(parola); };
  const auto presenti = std::count_if(parte.parole.begin(), parte.parole.end(), nelTesto);
  if (presenti > 0) {
    Motiva(proposta, presenti > 1 ? 2 * kPuntiNome : kPuntiNome, "nome nella descrizione");
  }
  const auto fattura = std::find_if(proposta.scadenze.begin(), proposta.scadenze.end(), nominata);
  if (fattura != proposta.scadenze.end()) {
    Motiva(proposta, kPuntiFattura, "fattura " + fattura->nFat);
  }
  if (proposta.punti < kPuntiMinimi) return std::nullopt;
  return proposta;
}

std::vector<PropostaBanca> AbbinamentoBanca::Proponi(const LineaEstratto& linea) const {
  const std::string cfp = linea.importo.Negativo() ? "F" : "C";
  const auto elenco = Parole(linea.descrizione);
  const std::set<std::string> parole(elenco.begin(), elenco.end());
  std::vector<PropostaBanca> proposte;
  for (const std::size_t indice : Candidate(linea, cfp, parole)) {
    auto proposta = Confronta(parti_[indice], linea, elenco, parole);
    if (proposta) proposte.push_back(std::move(*proposta));
  }
  std::stable_sort(proposte.begin(), proposte.end(),
                   [](const auto& a, const auto& b) { return a.punti > b.punti; });
  if (proposte.size() > kMassimoProposte) proposte.resize(kMassimoProposte);
  return proposte;
}

namespace {

Pagamento PagamentoDi(const LineaEstratto& linea, const PropostaBanca& proposta,
                      const OpzioniAbbinamento& opzioni) {
  Pagamento pagamento;
  pagamento.cfp = proposta.cfp;
  pagamento.dt = linea.data;
  pagamento.causale = opzioni.causale;
  pagamento.descrizione = linea.descrizione;
  pagamento.descrizioneParte = proposta.cfp == "C" ? "Incasso" : "Pagamento";
  pagamento.contropartita = opzioni.contropartita;
  pagamento.contoArrotondamenti = opzioni.contoArrotondamenti;
  for (const Scadenza& scadenza : proposta.scadenze) {
    pagamento.righe.push_back({scadenza, scadenza.Residuo(), Importo(), true});
  }
  if (!pagamento.righe.empty()) {
    pagamento.righe.back().importoPagato -= proposta.arrotondamento;
    pagamento.righe.back().arrotondamento = proposta.arrotondamento;
  }
  return pagamento;
}

}  // namespace

std::string AbbinamentoBanca::Rifiuto(const LineaEstratto& linea,
                                      const Pagamento& pagamento) const {
  if (linea.data.Anno() != ambiente_.Anno()) {
    return "il movimento è del " + linea.data.Testo() + ": per registrarlo selezionare l'anno " +
           std::to_string(linea.data.Anno());
  }
  // Another station may have read the same statement.
  if (ambiente_.Esiste("scadenzario", "MovimentiBanca", {{"Chiave", linea.chiave}})) {
    return "il movimento del " + linea.data.Testo() + " è già stato registrato";
  }
  if (pagamento.causale.empty()) return "Manca causale o conti";
  const std::string rifiuto = RifiutoPagamento(ambiente_, pagamento);
  return rifiuto.empty() ? RifiutoCodici(ambiente_, pagamento) : rifiuto;
}

bool AbbinamentoBanca::Accetta(const LineaEstratto& linea, const PropostaBanca& proposta,
                               const OpzioniAbbinamento& opzioni) {
  const Pagamento pagamento = PagamentoDi(linea, proposta, opzioni);
  if (const std::string rifiuto = Rifiuto(linea, pagamento); !rifiuto.empty()) {
    ambiente_.Dialogo().Messaggio(rifiuto, Icona::Avviso);
    return false;
  }
  if (ledger::ControlloDataGiornale(ambiente_, linea.data)) return false;
  const auto scritto = RegistraPagamento(ambiente_, pagamento, [&](std::int64_t numDoc) {
    ambiente_.ArchivioDi("scadenzario")
        .Inserisci("MovimentiBanca", {{"Chiave", linea.chiave},
                                      {"Dt", linea.data},
                                      {"Importo", linea.importo},
                                      {"Descrizione", linea.descrizione},
                                      {"Anno", ambiente_.Anno()},
                                      {"Articolo", numDoc}});
  });
  if (!scritto.scritto) return false;
  abbinate_.insert(linea.chiave);
  Togli(proposta);
  ambiente_.Dialogo().Annuncia(TestoPagamentoScritto(scritto));
  return true;
}

void AbbinamentoBanca::Togli(const PropostaBanca& proposta) {
  for (Parte& parte : parti_) {
    if (parte.cfp != proposta.cfp || !UgualeTesto(parte.conto, proposta.conto)) continue;
    std::erase_if(parte.scadenze, [&](const Scadenza& s) {
      return std::any_of(proposta.scadenze.begin(), proposta.scadenze.end(),
                         [&](const Scadenza& pagata) { return pagata.numero == s.numero; });
    });
    parte.residuo = SommaResidui(parte.scadenze);
  }
  Indicizza();
}

}  // namespace fenalto::duedates
