// What a chosen period proposes, and what it warns of.
#include <algorithm>
#include <limits>

#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "vat/register/RegistroIvaInterno.h"
#include "vat/settlement/TotaliInterno.h"

namespace fenalto::vat {
namespace {

constexpr const char* kImpostare = "bisogna impostare la casella 'fino al n.protocollo ...'";

/// What is told of deferred invoices that no register takes, by the type of the one that would.
constexpr std::pair<const char*, const char*> kSenzaRegistro[] = {
    {"08",
     "ci sono fatture vendita in sospensione iva pagate:\nè necessario creare un registro iva "
     "di tipo 08"},
    {"08A",
     "ci sono fatture acquisti in sospensione iva incassate:\nè necessario creare un registro "
     "iva di tipo 08A"}};

std::string NomeEDescrizione(const IntervalloRegistro& intervallo) {
  return "Registro " + intervallo.riva + " " + intervallo.descrizione + "\n";
}

bool DaIncassi(const std::string& tipo) {
  return UgualeTesto(tipo, "08") || UgualeTesto(tipo, "08A");
}

}  // namespace

void RegistroIvaUnico::Interno::AvvisaGiaChiuso() {
  if (periodo.Annuale()) return;
  if (!ambiente.Esiste("tessarc", "ChiusureIva",
                       {{"Anno", periodo.anno}, {"MESETRIMESTRE", periodo.cod}})) {
    return;
  }
  Avviso("La chiusura iva del periodo " + periodo.testo +
         " è già stata effettuata in definitiva.\n"
         "E'possibile ristamparla e riconfermarla in definitiva.\n"
         "In questo caso: \n"
         "- se sono state modificate/inserite registrazioni può essere necessario forzare i numeri "
         "protocollo.\n"
         "- l'eventuale credito iva dovrà essere forzato.");
}

std::int64_t RegistroIvaUnico::Interno::PrimoDaStampare(const std::string& riva,
                                                        std::int64_t ultProtSt) {
  std::int64_t massimo = -1;
  for (Rs rs = tessarc.Recordset(
           "SELECT * FROM UltProtStRegIva WHERE " + sql::Criterio("Riva", "=", riva) + " AND " +
           sql::Criterio("Anno", "=", periodo.anno) + " ORDER BY MESETRIMESTRE");
       !rs.Eof(); rs.MoveNext()) {
    const std::string cod = rs.Fields("MeseTrimestre").Testo();
    if (cod == periodo.cod) return rs.Fields("DaNProt").Intero();
    if (cod != "Z") massimo = std::max(massimo, rs.Fields("UltProtSt").Intero());
  }
  // The summary takes the year from its beginning.
  if (periodo.Annuale()) return 1;
  if (massimo >= 0) return massimo + 1;
  // Nothing is printed of this year: the register's last protocol belongs to another, if any.
  const bool altriAnni = ambiente.Esiste("tessarc", "UltProtStRegIva", {{"Riva", riva}});
  return altriAnni ? 1 : ultProtSt + 1;
}

std::int64_t RegistroIvaUnico::Interno::UltimoNelPeriodo(const std::string& riva) {
  return Nz(tessarc.Singolo("SELECT Max(NProt) FROM ZarticoliProtocollati WHERE " +
                            NelPeriodo(riva)))
      .Intero();
}

std::int64_t RegistroIvaUnico::Interno::PrimoNelPeriodo(const std::string& riva) {
  const Valore primo =
      tessarc.Singolo("SELECT Min(NProt) FROM ZarticoliProtocollati WHERE " + NelPeriodo(riva));
  return primo.Nullo() ? std::numeric_limits<std::int64_t>::max() : primo.Intero();
}

std::string RegistroIvaUnico::Interno::NelPeriodo(const std::string& riva) const {
  std::string condizione =
      sql::Criterio("Riva", "=", riva) + " and " + sql::Criterio("Anno", "=", periodo.anno);
  if (!periodo.Annuale()) {
    condizione += " and " + sql::Criterio("Dt", ">=", periodo.Primo()) + " and " +
                  sql::Criterio("Dt", "<=", periodo.UltimoGiorno());
  }
  return condizione;
}

void RegistroIvaUnico::Interno::LeggiIntervalli() {
  intervalli.clear();
  for (Rs rs = tessarc.Recordset("SELECT * FROM REGISTRIIVA  ORDER BY COD"); !rs.Eof();
       rs.MoveNext()) {
    IntervalloRegistro intervallo;
    intervallo.riva = rs.Fields("Cod").Testo();
    intervallo.tipo = rs.Fields("Tipo").Testo();
    intervallo.descrizione = rs.Fields("Descrizione").Testo();
    intervallo.daIncassi = DaIncassi(intervallo.tipo);
    if (!intervallo.daIncassi) {
      intervallo.daNProt = PrimoDaStampare(intervallo.riva, rs.Fields("UltProtSt").Intero());
      // Nothing in the period is an empty range behind the last protocol printed.
      intervallo.aaNProt = std::max(UltimoNelPeriodo(intervallo.riva), intervallo.daNProt - 1);
    }
    intervalli.push_back(intervallo);
  }
}

void RegistroIvaUnico::Interno::ProponiIntervalli() {
  LeggiIntervalli();
  for (const IntervalloRegistro& intervallo : intervalli) {
    if (intervallo.daIncassi) continue;
    const Valore stampato = ambiente.Cerca(
        "tessarc", "UltProtStRegIva",
        {{"Anno", periodo.anno}, {"Riva", intervallo.riva}, {"MeseTrimestre", periodo.cod}},
        "UltProtSt");
    AvvisaIntervallo(intervallo, stampato.Nullo() ? intervallo.aaNProt : stampato.Intero());
  }
}

/// `stampato` is the last protocol that the period had when it was printed, or the proposed one.
void RegistroIvaUnico::Interno::AvvisaIntervallo(const IntervalloRegistro& intervallo,
                                                 std::int64_t stampato) {
  const auto data = [&](std::int64_t nProt) {
    return ambiente.Cerca("tessarc", "ZarticoliProtocollati",
                          {{"Riva", intervallo.riva}, {"Anno", periodo.anno}, {"NProt", nProt}},
                          "Dt");
  };
  if (stampato > 0 && data(stampato).Nullo()) {
    Avviso(NomeEDescrizione(intervallo) + "il protocollo " + std::to_string(stampato) +
           " non esiste più\n" + kImpostare);
    return;
  }
  const Valore seguente = data(stampato + 1);
  if (seguente.Nullo() || !periodo.Contiene(seguente.Data())) return;
  const Data ultima = stampato > 0 ? data(stampato).Data() : periodo.Primo();
  Avviso(NomeEDescrizione(intervallo) + "ci sono già registrazioni successive a " + ultima.Testo() +
         "\n" + kImpostare);
}

void RegistroIvaUnico::Interno::AvvisaIncassi() {
  for (const SenzaRegistro& manca : IncassiSenzaRegistro()) Avviso(manca.testo);
}

std::vector<RegistroIvaUnico::Interno::SenzaRegistro>
RegistroIvaUnico::Interno::IncassiSenzaRegistro() {
  std::vector<SenzaRegistro> mancanti;
  for (const auto& [speciale, testo] : kSenzaRegistro) {
    if (ambiente.Esiste("tessarc", "RegistriIva", {{"Tipo", speciale}})) continue;
    const bool incassate = tessarc
                               .Singolo("SELECT Count(*) FROM ZarticoliSospese AS Articoli WHERE " +
                                        CondizioneIncassati(ambiente, speciale, periodo))
                               .Intero() > 0;
    if (incassate) mancanti.push_back({speciale, testo});
  }
  return mancanti;
}

void RegistroIvaUnico::Interno::LeggiOpzioni() {
  opzioni.stIndirizzo = ImpostazioneAttiva(ambiente, "StIndirizzo");
  opzioni.ventilazione.riva = ambiente.Config("RivaVentil");
  opzioni.ventilazione.riva1 = ambiente.Config("RivaVentil1");
  for (const bool secondo : {false, true}) ProponiVentilazione(secondo);
}

void RegistroIvaUnico::Interno::ProponiOpzioni() {
  LeggiOpzioni();
  opzioni.liquidazione = ProponiLiquidazione(ambiente, periodo);
  opzioni.dtReg = periodo.UltimoGiorno();
}

void RegistroIvaUnico::Interno::ProponiVentilazione(bool secondo) {
  Ventilazione& v = opzioni.ventilazione;
  const std::string& riva = secondo ? v.riva1 : v.riva;
  std::int64_t& fino = secondo ? v.aaNProt1 : v.aaNProt;
  fino = 0;
  if (!riva.empty()) {
    fino = Nz(tessarc.Singolo("SELECT Max(NProt) FROM ZarticoliFatture WHERE " +
                              sql::Criterio("Riva", "=", riva) + " and " +
                              sql::Criterio("Anno", "=", periodo.anno) + " and " +
                              sql::Criterio("Dt", "<=", periodo.UltimoGiorno())))
               .Intero();
  }
  (secondo ? ventilazioneProposta.aaNProt1 : ventilazioneProposta.aaNProt) = fino;
}

void RegistroIvaUnico::Interno::RimettiVentilazione(const Ventilazione& digitata,
                                                    const Ventilazione& proposta) {
  Ventilazione& v = opzioni.ventilazione;
  if (digitata.riva == v.riva && digitata.aaNProt != proposta.aaNProt) {
    v.aaNProt = digitata.aaNProt;
  }
  if (digitata.riva1 == v.riva1 && digitata.aaNProt1 != proposta.aaNProt1) {
    v.aaNProt1 = digitata.aaNProt1;
  }
}

}  // namespace fenalto::vat
