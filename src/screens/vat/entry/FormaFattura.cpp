#include "screens/vat/entry/FormaFattura.h"

#include <QString>
#include <algorithm>

#include "core/archives/FonteCodici.h"

namespace fenalto::screens {
namespace {

using records::CampoForma;
using records::DiCodice;
using records::Digitato;
using records::DiMoneta;
using records::Mostrato;
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
CampoForma Codice(std::string nome, std::string didascalia, std::string fonte, const char* riquadro,
                  int colonna) {
  constexpr int kCaratteri = 8;
  return DiCodice(std::move(nome), std::move(didascalia), std::move(fonte), kCaratteri)
      .In(riquadro)
      .Colonna(colonna)
      .Peso(1);
}

CampoForma Casella(const char* nome, const char* testo, const char* riquadro) {
  return Digitato(nome, testo).In(riquadro).AlMargine();
}

}  // namespace

records::DescrizioneForma FormaTestaFattura() {
  constexpr int kNumero = 8;
  constexpr int kCodice = 11;
  return {
      .campi =
          {Mostrato("Riva", Genere::Titolo, "Registro iva"),
           Mostrato("RivaDescrizione", Genere::Titolo).Accanto().Peso(1),
           Digitato("Ep", "iva in sospensione").Accanto().Turno(1),
           Digitato("Dt", "Data").Aiuto(kGiorno),
           Digitato("NProt", "Protocollo").Accanto().Mostra(kNumero).Aiuto(kAssegnato).Turno(2),
           Mostrato("ProbabileNProt", Genere::Sommessa).Accanto(),
           Digitato("NumDoc", "Articolo n.").Accanto().Mostra(kNumero).Aiuto(kAssegnato).Turno(2),
           Mostrato("ProbabileNumDoc", Genere::Sommessa).Accanto(),
           DiCodice("Contox", "Fornitore", "conti", kCodice).Nomina("EtichettaParte").Peso(1),
           Digitato("NFat", "N. fattura").Mostra(15),
           Digitato("DtFat", "del").Accanto().Nomina("EtichettaDtFat"),
           Digitato("DtIncasso", "Data incasso").Accanto(),
           DiCodice("Pagamento", "Pagamento", "pagamenti", kCodice).Peso(1),
           Mostrato("NotaPagamento", Genere::Sommessa).Peso(1),
           Digitato("Descrizionex", "Descrizione").Peso(1),
           Digitato("NVarAnPrec", "nota di variazione anni precedenti").Accanto().Turno(1)},
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
    return {.didascalia = fatture.EtichettaParte(),
            .fonte = archives::NomeFonteConti(fatture.ClasseParte())};
  }
  if (nome != "NotaPagamento") return {};
  const std::string nota =
      QString::fromStdString(fatture.NotaPagamento()).simplified().toStdString();
  return {.visibile = !nota.empty(), .testo = nota, .suggerimento = nota};
}

records::DescrizioneForma FormaOpzioniFattura() {
  constexpr int kCifre = 11;
  return {
      .campi = {Codice("RivaIntra", "Registro", "registriTipo05", kIntra, 0),
                Casella("NoIntraCosto_a_Forn", "senza giro costo a fornitore", kIntra).Colonna(1),
                Codice("FornitoreIntra", "Fornitore", "fornitori", kIntra, 0),
                Codice("ContoCostiIntra", "Conto costi", "conti", kIntra, 1),
                Codice("CausaleIntra", "Causale", "causali", kIntra, 0),
                Codice("PagamentoIntra", "Pagamento", "pagamenti", kIntra, 1),
                Casella("BollaDog", "registra il giro della bolla doganale", kBolla),
                Codice("FornitoreBollaDog", "Fornitore", "fornitori", kBolla, 0),
                Codice("CausaleBollaDog", "Causale", "causali", kBolla, 1),
                Codice("PagamentoBollaDog", "Pagamento", "pagamenti", kBolla, 0),
                Casella("RitAcc", "registra la ritenuta d'acconto", kRitenute).Colonne(2),
                Codice("CausaleRitAcc1", "1. Causale", "causali", kRitenute, 0),
                Codice("ContoRitAcc1", "Conto", "conti", kRitenute, 1),
                DiMoneta("ImportoRitAcc1", "Importo", kCifre).In(kRitenute),
                Codice("CausaleRitAcc2", "2. Causale", "causali", kRitenute, 0),
                Codice("ContoRitAcc2", "Conto", "conti", kRitenute, 1),
                DiMoneta("ImportoRitAcc2", "Importo", kCifre).In(kRitenute)},
      .riquadri =
          {{.nome = kIntra,
            .titolo = "Reverse charge: registrazione sugli acquisti",
            .largo = true},
           {.nome = kBolla, .titolo = "Bolla doganale", .largo = true, .interruttore = "BollaDog"},
           {.nome = kRitenute,
            .titolo = "Ritenuta d'acconto",
            .largo = true,
            .interruttore = "RitAcc"}},
      .stretta = true};
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
