#include "screens/vat/entry/FormaFattura.h"

#include <QString>
#include <algorithm>

#include "screens/ledger/FontiForma.h"

namespace fenalto::screens {
namespace {

using records::CampoForma;
using records::FonteCampo;
using Genere = records::GenereCampo;

constexpr const char* kAssegnato = "vuoto: lo assegna il programma alla conferma";
constexpr const char* kGiorno = "15, 1503, 150324 o 15/3: il resto si completa da solo";
constexpr const char* kIntra = "FrameIntra";
constexpr const char* kBolla = "FrameBollaDog";
constexpr const char* kRitenute = "FrameRitAcc";

bool UnoDi(const std::string& nome, std::initializer_list<const char*> nomi) {
  return std::any_of(nomi.begin(), nomi.end(), [&](const char* uno) { return nome == uno; });
}

/// A code in the first pair of its frame's grid, or in a further one.
CampoForma Codice(std::string nome, std::string didascalia, FonteCampo fonte, const char* riquadro,
                  int colonna) {
  constexpr int kCaratteri = 8;
  return {.nome = std::move(nome),
          .didascalia = std::move(didascalia),
          .caratteri = kCaratteri,
          .genere = Genere::Codice,
          .fonte = std::move(fonte),
          .riquadro = riquadro,
          .colonna = colonna,
          .peso = 1};
}

void AggiungiRitenuta(std::vector<CampoForma>& campi, const std::string& quale) {
  constexpr int kCifre = 11;
  campi.push_back(Codice("CausaleRitAcc" + quale, quale + ". Causale", DaCausali(), kRitenute, 0));
  campi.push_back(Codice("ContoRitAcc" + quale, "Conto", DaConti(), kRitenute, 1));
  campi.push_back({.nome = "ImportoRitAcc" + quale,
                   .didascalia = "Importo",
                   .caratteri = kCifre,
                   .decimali = records::kDecimaliMoneta,
                   .riquadro = kRitenute,
                   .colonna = 2});
}

}  // namespace

records::DescrizioneForma FormaTestaFattura() {
  constexpr int kNumero = 8;
  constexpr int kFattura = 15;
  constexpr int kCodice = 11;
  return {
      .campi = {{.nome = "Riva", .didascalia = "Registro iva", .genere = Genere::Titolo},
                {.nome = "RivaDescrizione", .genere = Genere::Titolo, .accanto = true, .peso = 1},
                {.nome = "Dt", .didascalia = "Data", .suggerimento = kGiorno},
                {.nome = "NProt",
                 .didascalia = "Protocollo",
                 .accanto = true,
                 .mostrati = kNumero,
                 .suggerimento = kAssegnato,
                 .turno = 2},
                {.nome = "ProbabileNProt", .genere = Genere::Sommessa, .accanto = true},
                {.nome = "NumDoc",
                 .didascalia = "Articolo n.",
                 .accanto = true,
                 .mostrati = kNumero,
                 .suggerimento = kAssegnato,
                 .turno = 2},
                {.nome = "ProbabileNumDoc", .genere = Genere::Sommessa, .accanto = true},
                {.nome = "Contox",
                 .didascalia = "Fornitore",
                 .caratteri = kCodice,
                 .genere = Genere::Codice,
                 .fonte = DaConti(),
                 .nomeDidascalia = "EtichettaParte",
                 .peso = 1},
                {.nome = "NFat", .didascalia = "N. fattura", .mostrati = kFattura},
                {.nome = "DtFat",
                 .didascalia = "del",
                 .accanto = true,
                 .nomeDidascalia = "EtichettaDtFat"},
                {.nome = "DtIncasso", .didascalia = "Data incasso", .accanto = true},
                {.nome = "Ep", .didascalia = "iva in sospensione", .accanto = true, .turno = 1},
                {.nome = "Pagamento",
                 .didascalia = "Pagamento",
                 .caratteri = kCodice,
                 .genere = Genere::Codice,
                 .fonte = DaPagamenti(),
                 .peso = 1},
                {.nome = "NotaPagamento", .genere = Genere::Sommessa, .peso = 1},
                {.nome = "Descrizionex", .didascalia = "Descrizione", .peso = 1},
                {.nome = "NVarAnPrec",
                 .didascalia = "nota di variazione anni precedenti",
                 .accanto = true,
                 .turno = 1}},
      .stretta = true};
}

records::StatoCampo StatoTestaFattura(const vat::RegistrazioneIva& fatture,
                                      const std::string& nome) {
  if (nome == "RivaDescrizione") return {.testo = fatture.Registro().descrizione};
  if (nome == "DtIncasso") return {.visibile = fatture.MostraDtIncasso()};
  if (nome == "DtFat") {
    return {.didascalia = fatture.ClasseParte() == "P" ? "data corrispettivi" : "del"};
  }
  if (nome == "Contox") {
    return {.didascalia = fatture.EtichettaParte(), .fonte = DaConti(fatture.ClasseParte())};
  }
  if (nome != "NotaPagamento") return {};
  const std::string nota =
      QString::fromStdString(fatture.NotaPagamento()).simplified().toStdString();
  return {.visibile = !nota.empty(), .testo = nota, .suggerimento = nota};
}

records::DescrizioneForma FormaOpzioniFattura() {
  constexpr int kTutte = 3;
  records::DescrizioneForma forma{
      .campi = {Codice("RivaIntra", "Registro", DaRegistriIva("05"), kIntra, 0),
                {.nome = "NoIntraCosto_a_Forn",
                 .didascalia = "senza giro costo a fornitore",
                 .riquadro = kIntra,
                 .colonna = 1,
                 .alMargine = true},
                Codice("FornitoreIntra", "Fornitore", DaConti("F"), kIntra, 0),
                Codice("ContoCostiIntra", "Conto costi", DaConti(), kIntra, 1),
                Codice("CausaleIntra", "Causale", DaCausali(), kIntra, 0),
                Codice("PagamentoIntra", "Pagamento", DaPagamenti(), kIntra, 1),
                {.nome = "BollaDog",
                 .didascalia = "registra il giro della bolla doganale",
                 .riquadro = kBolla,
                 .alMargine = true},
                Codice("PagamentoBollaDog", "Pagamento", DaPagamenti(), kBolla, 1),
                Codice("FornitoreBollaDog", "Fornitore", DaConti("F"), kBolla, 0),
                Codice("CausaleBollaDog", "Causale", DaCausali(), kBolla, 1),
                {.nome = "RitAcc",
                 .didascalia = "registra la ritenuta d'acconto",
                 .riquadro = kRitenute,
                 .colonne = kTutte,
                 .alMargine = true}},
      .riquadri = {{.nome = kIntra,
                    .titolo = "Reverse charge: registrazione sugli acquisti",
                    .largo = true},
                   {.nome = kBolla, .titolo = "Bolla doganale", .largo = true},
                   {.nome = kRitenute, .titolo = "Ritenuta d'acconto", .largo = true}},
      .stretta = true};
  AggiungiRitenuta(forma.campi, "1");
  AggiungiRitenuta(forma.campi, "2");
  return forma;
}

records::StatoCampo StatoOpzioniFattura(vat::RegistrazioneIva& fatture, const std::string& nome) {
  // Registered once, with the document: afterwards there is nothing left to tell.
  if (nome == kIntra) return {.visibile = fatture.MostraIntra() && fatture.Nuova()};
  if (nome == kBolla) return {.visibile = fatture.MostraBollaDoganale() && fatture.Nuova()};
  if (nome == kRitenute) return {.visibile = fatture.MostraRitenute()};
  const auto& testa = fatture.Testa();
  if (UnoDi(nome, {"FornitoreIntra", "ContoCostiIntra", "CausaleIntra"})) {
    return {.attivo = !testa.Leggi("NoIntraCosto_a_Forn").Booleano()};
  }
  if (UnoDi(nome, {"FornitoreBollaDog", "CausaleBollaDog", "PagamentoBollaDog"})) {
    return {.attivo = testa.Leggi("BollaDog").Booleano()};
  }
  if (nome != "RitAcc" && nome.find("RitAcc") != std::string::npos) {
    return {.attivo = testa.Leggi("RitAcc").Booleano()};
  }
  return {};
}

}  // namespace fenalto::screens
