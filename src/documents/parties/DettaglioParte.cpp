// What a leaf of the enquiry of a party shows when it is chosen, and the party's own head.
#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "documents/parties/InterrogazioneParte.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::documents {
namespace {

constexpr int kCentesimi = 2;

/// The texts that aren't empty, with a mark between them.
std::string Uniti(const std::vector<std::string>& testi, const std::string& tra) {
  std::string uniti;
  for (const std::string& testo : testi) {
    const std::string rifilato(Rifila(testo));
    if (rifilato.empty()) continue;
    if (!uniti.empty()) uniti += tra;
    uniti += rifilato;
  }
  return uniti;
}

/// The text after its caption; nothing when there is none.
std::string ConNome(const std::string& nome, const std::string& testo) {
  return testo.empty() ? testo : nome + testo;
}

/// Code and description of an archive's record; nothing without a code.
std::string ConDescrizione(Ambiente& ambiente, const char* tabella, const std::string& cod) {
  if (cod.empty()) return cod;
  return Uniti({cod, NzStr(ambiente.Cerca("tessarc", tabella, {{"Cod", cod}}, "Descrizione"))},
               " ");
}

std::string Sconti(const Rs& riga) {
  std::vector<std::string> sconti;
  for (const char* campo : {"Sc1", "Sc2", "Sc3"}) {
    const Importo sconto = riga.Fields(campo).Importo();
    if (!sconto.Zero()) sconti.push_back(ScriviImporto(sconto, 0));
  }
  return Uniti(sconti, "+");
}

std::string StatoInParola(const duedates::Scadenza& s) {
  if (!s.Aperta()) return s.stato + " pagata";
  return s.stato +
         (UgualeTesto(s.stato, duedates::kStatoParziale) ? " pagata in parte" : " aperta");
}

/// Condition that picks the rows of one document in a stored query.
std::string DiDocumento(const FogliaParte& foglia) {
  return sql::Criterio("TipoDoc", "=", foglia.tipoDoc) + " AND " +
         sql::Criterio("Anno", "=", foglia.anno) + " AND " +
         sql::Criterio("NumDoc", "=", foglia.numero);
}

}  // namespace

TestaParte InterrogazioneParte::Testa() {
  const bool cliente = UgualeTesto(cfp_, "C");
  Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(std::string("SELECT * FROM ") +
                                                    (cliente ? "Clienti" : "Fornitori") +
                                                    " WHERE " + sql::Criterio("Cod", "=", codice_));
  TestaParte testa;
  if (rs.Eof()) return testa;
  const auto campo = [&rs](const char* nome) {
    return std::string(Rifila(rs.Fields(nome).Testo()));
  };
  testa.esiste = true;
  testa.nome = Uniti({campo("ragsoc1"), campo("ragsoc2")}, " ");
  testa.indirizzo = Uniti(
      {campo("indirizzo"), Uniti({campo("cap"), campo("localita"), campo("Prov")}, " ")}, " - ");
  testa.contatti = Uniti({ConNome("tel. ", Uniti({campo("telefono1"), campo("telefono2")}, ", ")),
                          ConNome("fax ", campo("Fax")), campo("EMail")},
                         "   ");
  testa.fiscali =
      Uniti({ConNome("p.iva ", campo("piva")), ConNome("cod.fisc. ", campo("CodFisc"))}, "   ");
  testa.pagamento = ConDescrizione(ambiente_, "Pagamento", campo("Pagamento"));
  if (cliente) testa.fido = rs.Fields("Fido").Importo();
  return testa;
}

bool InterrogazioneParte::InEuro(int anno) {
  const auto trovato = euro_.find(anno);
  if (trovato != euro_.end()) return trovato->second;
  const bool euro = ambiente_.Cerca("tessarc", "Anni", {{"Anno", anno}}, "Euro").Booleano();
  return euro_.emplace(anno, euro).first->second;
}

int InterrogazioneParte::DecimaliDi(int anno) {
  return InEuro(anno) ? kCentesimi : 0;
}

Rs InterrogazioneParte::Vista(const char* nome, const FogliaParte& foglia, const char* ordine) {
  return ambiente_.ArchivioDi("tessarc").Recordset(std::string("SELECT * FROM ") + nome +
                                                   " WHERE " + DiDocumento(foglia) + " ORDER BY " +
                                                   ordine);
}

DocumentoParte InterrogazioneParte::Documento(const FogliaParte& foglia) {
  DocumentoParte documento;
  const Rs testa = ambiente_.ArchivioDi("tessarc").Recordset("SELECT * FROM FattureCli WHERE " +
                                                             DiDocumento(foglia));
  if (testa.Eof()) return documento;
  const auto scritta = [&testa](const char* campo) { return testa.Fields(campo).Testo(); };
  documento.titolo = ConDescrizione(ambiente_, "TipiFattureCli", foglia.tipoDoc) + "  n." +
                     std::to_string(foglia.numero) + " del " + testa.Fields("Dt").Data().Testo();
  const std::string destinazione = Uniti({scritta("RagSoc1Dest"), scritta("ragsoc2Dest"),
                                          scritta("indirizzodest"), scritta("localitadest")},
                                         " - ");
  for (std::string riga :
       {ConNome("pagamento ", ConDescrizione(ambiente_, "Pagamento", scritta("Pagamento"))),
        ConNome("destinazione ", destinazione),
        Uniti({scritta("Varie1"), scritta("Varie2"), scritta("Varie3"), scritta("Varie4")},
              " - ")}) {
    if (!riga.empty()) documento.scritte.push_back(std::move(riga));
  }
  for (Rs rs = Vista("zFattureCli_rConConti", foglia, "Posi"); !rs.Eof(); rs.MoveNext()) {
    const auto testo = [&rs](const char* campo) { return NzStr(rs.Fields(campo)); };
    documento.righe.push_back(
        {testo("CodiceRiga"), Uniti({testo("Descrizione"), testo("Descrizione2")}, " "),
         testo("um"), rs.Fields("Quantita").Importo(), rs.Fields("Prezzo").Importo(), Sconti(rs),
         rs.Fields("Importo").Importo(), testo("CodIva"), testo("Conto"), testo("DescrConto")});
  }
  const bool ivati =
      ambiente_.Cerca("tessarc", "TipiFattureCli", {{"Cod", foglia.tipoDoc}}, "PrezziIvati")
          .Booleano();
  const bool euro = InEuro(foglia.anno);
  const Importo scontoCassa = testa.Fields("ScontoCassa").Importo();
  for (Rs rs = Vista("TotXCodiIvaFattureCli", foglia, "CodIva"); !rs.Eof(); rs.MoveNext()) {
    TotaleIvaDocumento totale{NzStr(rs.Fields("CodIva")),
                              NzStr(rs.Fields("DescrIva")),
                              rs.Fields("Perc").Importo(),
                              {},
                              {}};
    const Importo netto = ApplicaScontoCassa(rs.Fields("Importo").Importo(), scontoCassa, euro);
    totale.imponibile = ivati ? ScorporaImponibile(netto, totale.perc) : netto;
    totale.iva = ivati ? netto - totale.imponibile : CalcolaIva(netto, totale.perc, euro);
    documento.totali.push_back(std::move(totale));
  }
  return documento;
}

std::vector<RigaRegistrazione> InterrogazioneParte::Registrazione(int anno, std::int64_t numero) {
  std::vector<RigaRegistrazione> righe;
  for (Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
           "SELECT Movimenti.*, ContiClientiFornitori.Descrizione AS DescrConto "
           "FROM Movimenti LEFT JOIN ContiClientiFornitori ON "
           "(Movimenti.Conto = ContiClientiFornitori.Cod) AND "
           "(Movimenti.CFP = ContiClientiFornitori.CFP) WHERE " +
           sql::Criterio("Movimenti.Anno", "=", anno) + " AND " +
           sql::Criterio("Movimenti.NumDoc", "=", numero) +
           " ORDER BY Movimenti.Posi, Movimenti.Num");
       !rs.Eof(); rs.MoveNext()) {
    righe.push_back({rs.Fields("Causale").Testo(), rs.Fields("Descrizione").Testo(),
                     rs.Fields("Conto").Testo(), NzStr(rs.Fields("DescrConto")),
                     rs.Fields("ImpoDare").Importo(), rs.Fields("ImpoAvere").Importo()});
  }
  return righe;
}

std::vector<std::pair<std::string, std::string>> InterrogazioneParte::Scadenza(
    std::int64_t numero) {
  const auto letta = duedates::LeggiScadenza(ambiente_, numero);
  if (!letta) return {};
  const auto& s = *letta;
  const auto importo = [](Importo valore) { return ScriviImporto(valore, kCentesimi); };
  std::vector<std::pair<std::string, std::string>> righe = {
      {"scadenza n.", std::to_string(s.numero)},
      {"data scadenza", s.dt.Testo()},
      {"tipo", ConDescrizione(ambiente_, "tipipagamento", s.tipo)},
      {"stato", StatoInParola(s)},
      {"importo", importo(s.importoE)},
      {"pagato", importo(s.importoPagatoE)},
      {"residuo", importo(s.Residuo())},
      {"descrizione", s.descrizione},
      {"pagamento", ConDescrizione(ambiente_, "Pagamento", s.pagamento)}};
  if (s.anticipo) righe.emplace_back("acconto", "si");
  if (!s.nFat.empty()) {
    righe.emplace_back("fattura", Uniti({s.nFat, s.dtFat.Testo()}, " del "));
  }
  if (s.articolo != 0) {
    righe.emplace_back("registrazione",
                       std::to_string(s.articolo) + " anno " + std::to_string(s.anno));
  }
  std::erase_if(righe, [](const auto& riga) { return riga.second.empty(); });
  return righe;
}

Rinvio InterrogazioneParte::RinvioRegistrazione(const FogliaParte& foglia) {
  if (foglia.genere == GenereFoglia::Movimento) {
    return AllaRegistrazione(foglia.anno, foglia.numero);
  }
  if (foglia.genere == GenereFoglia::Documento) return {};
  const auto scadenza = duedates::LeggiScadenza(ambiente_, foglia.numero);
  if (!scadenza || scadenza->articolo == 0) return {};
  return AllaRegistrazione(scadenza->anno, scadenza->articolo);
}

}  // namespace fenalto::documents
