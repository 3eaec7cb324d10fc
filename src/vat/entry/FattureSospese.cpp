#include "vat/entry/FattureSospese.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/accounts/ContiClientiFornitori.h"
#include "ledger/registrations/ControlliData.h"
#include "ledger/registrations/TestataArticolo.h"
#include "vat/postings/DatiIva.h"
#include "vat/postings/StornoSospesa.h"

namespace fenalto::vat {

namespace {

constexpr std::string_view kTipoSospese = "06";

std::string RifiutoDataNuova(Ambiente& ambiente, const SospesaStornabile& sospesa, Data incasso) {
  if (incasso < sospesa.dt) {
    return "La data di incasso " + incasso.Testo() +
           " viene prima della registrazione della fattura " + sospesa.Nome() + ": correggerla.";
  }
  const auto& anni = ambiente.Anni();
  if (std::find(anni.begin(), anni.end(), incasso.Anno()) == anni.end()) {
    return "La data di incasso " + incasso.Testo() +
           " è in un anno che la ditta non ha: correggerla, o creare prima l'anno.";
  }
  if (!sospesa.rivaIncassate.empty()) return {};
  return std::string("è necessario creare un registro iva di tipo ") +
         (sospesa.acquisto ? "08A" : "08");
}

/// What stands against a new day (null: none) of an invoice that has this storno; empty when
/// nothing does.
std::string PercheNonSiStorna(Ambiente& ambiente, const SospesaStornabile& sospesa,
                              const std::optional<ArticoloOrigine>& storno, Data incasso) {
  if (std::string chiuso = IncassoInPeriodoChiuso(ambiente, sospesa.incasso, incasso);
      !chiuso.empty()) {
    return chiuso;
  }
  if (storno && SulGiornale(ambiente, sospesa.incasso)) {
    return "Lo storno dell'IVA, articolo n. " + std::to_string(storno->numDoc) + " del " +
           sospesa.incasso.Testo() + ", è già sul libro giornale: la data non si può cambiare.";
  }
  return incasso.Nulla() ? "" : RifiutoDataNuova(ambiente, sospesa, incasso);
}

/// Under the numbering lock, so that no settlement is stored between the checks and the write. Why
/// not, or empty and the storno's number.
std::string ScriviCambio(Ambiente& ambiente, const ArticoloOrigine& articolo,
                         const Esito<Blocco, Detentore>& preso, Data incasso,
                         std::int64_t& numeroStorno) {
  auto letta = LeggiSospesa(ambiente, articolo);
  if (!letta) return "La fattura non c'è più o non è più in sospensione IVA: rileggere l'elenco.";
  if (!preso) {
    return "La fattura " + letta->Nome() + " è in modifica " + preso.Errore().Descrizione() +
           ": riprovare quando sarà libera.";
  }
  const auto storno = TrovaStorno(ambiente, *letta);
  std::string rifiuto = PercheNonSiStorna(ambiente, *letta, storno, incasso);
  if (!rifiuto.empty()) return rifiuto;
  if (storno) EliminaStorno(ambiente, *storno);
  letta->incasso = incasso;
  ambiente.ArchivioDi("tessarc").Esegui(
      "update Articoli set Ep=True, DtIncasso=" + sql::LetteraleSql(incasso) + " where " +
      sql::Criterio("ID", "=", letta->id));
  numeroStorno = ScriviStorno(ambiente, *letta);
  return {};
}

std::string CondizioneSospese(Ambiente& ambiente) {
  std::string condizione = "Articoli.Ep=True";
  for (Rs r = ambiente.ArchivioDi("tessarc").Recordset("select Cod from RegistriIva where " +
                                                       sql::Criterio("Tipo", "=", kTipoSospese));
       !r.Eof(); r.MoveNext()) {
    condizione += " or " + sql::Criterio("Articoli.Riva", "=", r.Fields("Cod"));
  }
  return "(" + condizione + ")";
}

}  // namespace

bool FattureSospese::Usate(Ambiente& ambiente) {
  return std::ranges::any_of(std::array{"06", "08", "08A"}, [&](const char* tipo) {
    return ambiente.Esiste("tessarc", "RegistriIva", {{"Tipo", tipo}});
  });
}

std::vector<std::pair<std::string, std::string>> FattureSospese::Registri() {
  std::vector<std::pair<std::string, std::string>> registri;
  for (Rs r = ambiente_.ArchivioDi("tessarc").Recordset(
           "select Cod, Descrizione from RegistriIva where Tipo='01' or Tipo='03' or Tipo='06' "
           "order by Cod");
       !r.Eof(); r.MoveNext()) {
    registri.emplace_back(r.Fields(0).Testo(), r.Fields(1).Testo());
  }
  return registri;
}

std::vector<FatturaSospesa> FattureSospese::Elenco(const FiltroSospese& filtro) {
  std::string sql = "select Articoli.* from Articoli where " + CondizioneSospese(ambiente_);
  if (!filtro.riva.empty()) sql += " and " + sql::Criterio("Articoli.Riva", "=", filtro.riva);
  if (!filtro.da.Nulla()) sql += " and " + sql::Criterio("Articoli.Dt", ">=", filtro.da);
  if (!filtro.a.Nulla()) sql += " and " + sql::Criterio("Articoli.Dt", "<=", filtro.a);
  if (filtro.stato != StatoSospese::Tutte) {
    sql += " and " + sql::Criterio("Articoli.DtIncasso",
                                   filtro.stato == StatoSospese::Aperte ? "=" : "<>", Data());
  }
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  const std::string cercata = PerRicerca(Rifila(filtro.parte));
  std::vector<FatturaSospesa> elenco;
  for (Rs r = tessarc.Recordset(sql + " order by Articoli.Dt, Articoli.NumDoc"); !r.Eof();
       r.MoveNext()) {
    FatturaSospesa f;
    f.cfp = r.Fields("CFP").Testo();
    f.conto = r.Fields("Conto").Testo();
    f.nome = ledger::NomeConto(ambiente_, f.cfp, f.conto);
    if (!cercata.empty() && PerRicerca(f.conto) != cercata &&
        PerRicerca(f.nome).find(cercata) == std::string::npos) {
      continue;
    }
    f.anno = static_cast<int>(r.Fields("Anno").Intero());
    f.numDoc = r.Fields("NumDoc").Intero();
    f.riva = r.Fields("Riva").Testo();
    f.nProt = r.Fields("NProt").Intero();
    f.dt = r.Fields("Dt").Data();
    f.dtFat = r.Fields("DtFat").Data();
    f.nFat = r.Fields("NFat").Testo();
    f.dtIncasso = r.Fields("DtIncasso").Data();
    for (const RigaIva& riga : LeggiRigheIva(tessarc, f.anno, f.numDoc)) {
      if (riga.tipoRiga != TipoRigaIva::Imponibile) continue;
      f.imponibile += riga.imponibile;
      f.iva += riga.iva;
    }
    elenco.push_back(std::move(f));
  }
  return elenco;
}

bool FattureSospese::Imposta(const ArticoloOrigine& fattura, Data incasso) {
  if (incasso.Nulla()) {
    ambiente_.Dialogo().Messaggio("impostare la data di incasso", Icona::Avviso);
    return false;
  }
  return Cambia(fattura, incasso);
}

bool FattureSospese::Annulla(const ArticoloOrigine& fattura) {
  return Cambia(fattura, {});
}

bool FattureSospese::Cambia(const ArticoloOrigine& fattura, Data incasso) {
  std::int64_t storno = 0;
  // A window that has the invoice in edit would write the old day again.
  std::optional<Esito<Blocco, Detentore>> preso;
  const auto prende = [&] {
    preso = ledger::BloccaArticolo(ambiente_, fattura.anno, fattura.numDoc);
    return true;
  };
  const bool cambiata = records::Esegui(
      ambiente_,
      {.nonRiuscita = "modifica della data di incasso non riuscita: ",
       .dopoRifiuto = "",
       .numerazioni = {"ARTICOLI"},
       .ambito = Transazione::Ambito::Tessarc,
       .prima =
           [&] {
             const auto vista = LeggiSospesa(ambiente_, fattura);
             if (vista && vista->incasso == incasso) return false;
             if (vista && !incasso.Nulla() && vista->ContoAParte()) {
               ledger::ControlloDataGiornale(ambiente_, incasso);
             }
             return true;
           },
       .sottoBlocco = prende,
       .scrivi = [&] { return ScriviCambio(ambiente_, fattura, *preso, incasso, storno); }});
  if (cambiata && storno != 0) {
    ambiente_.AvvisoNumero("Storno dell'IVA differita: ARTICOLO CONTABILE", storno,
                           "annotare il numero");
  }
  return cambiata;
}

}  // namespace fenalto::vat
