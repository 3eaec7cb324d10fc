#include "vat/codes/RegistriIva.h"

#include <array>

#include "core/archives/Riferimenti.h"
#include "core/sql/Criterio.h"
#include "vat/codes/TipiRegistro.h"

namespace fenalto::vat {

namespace {

constexpr std::string_view kChiave = "tessarc";
constexpr std::string_view kRiquadroCorrispettivi = "Corrispettivi";
/// A register's causals are its code and a digit: taxable, VAT and party's row.
constexpr std::array kCifreCausali{'1', '2', '3'};

std::string Tipo(const archives::ContestoArchivio& contesto) {
  return contesto.scheda.Testo("Tipo");
}

bool Corrispettivi(const archives::ContestoArchivio& contesto) {
  return RegistroCorrispettivi(Tipo(contesto));
}

archives::DescrizioneArchivio::Controllo Obbligatorio(const char* campo, const char* messaggio) {
  return [campo, messaggio](archives::ContestoArchivio& contesto) -> std::optional<Rifiuto> {
    if (!contesto.scheda.Testo(campo).empty()) return std::nullopt;
    return Rifiuto{messaggio, campo};
  };
}

std::optional<Rifiuto> ControllaTipoNoto(archives::ContestoArchivio& contesto) {
  if (TrovaTipoRegistro(Tipo(contesto)) != nullptr) return std::nullopt;
  return Rifiuto{"tipo registro iva " + Tipo(contesto) + " inesistente: sceglierlo dall'elenco",
                 "Tipo"};
}

std::optional<Rifiuto> ControllaCorrispettivi(archives::ContestoArchivio& contesto) {
  if (!Corrispettivi(contesto)) return std::nullopt;
  for (const char* campo : {"ContoCassa", "ContoRicaviCorrisp", "CauGiroCorrisp"}) {
    if (contesto.scheda.Testo(campo).empty()) return Rifiuto{"mancano dati", campo};
  }
  return std::nullopt;
}

// --- Causals ----------------------------------------------------------------------------------

/// Makes a causal anew, whatever stood under its code.
void RifaiCausale(Archivio& tessarc, const std::string& codice, std::string_view descrizione) {
  tessarc.Esegui("DELETE * FROM CAUSALI WHERE " + sql::Criterio("Cod", "=", codice));
  tessarc.Inserisci("Causali", {{"Cod", codice}, {"Descrizione", descrizione}, {"Ripete", true}});
}

/// Erases the causals of a register that is no more; one that is in use stays.
void TogliCausali(Ambiente& ambiente, const std::string& registro) {
  for (const char cifra : kCifreCausali) {
    const std::string causale = registro + cifra;
    if (archives::CodiceUsato(ambiente, "Causali", causale)) continue;
    ambiente.ArchivioDi(kChiave).Esegui("DELETE * FROM CAUSALI WHERE " +
                                        sql::Criterio("Cod", "=", causale));
  }
}

void ScriviCausali(archives::ContestoArchivio& contesto) {
  Archivio& tessarc = contesto.ambiente.ArchivioDi(kChiave);
  if (!contesto.nuovo && contesto.CodiceCambiato()) {
    TogliCausali(contesto.ambiente, contesto.codicePrima);
  }
  const TipoRegistro* tipo = TrovaTipoRegistro(Tipo(contesto));
  if (tipo != nullptr && !tipo->causale.empty()) {
    for (const char cifra : kCifreCausali) {
      RifaiCausale(tessarc, contesto.Codice() + cifra, tipo->causale);
    }
  }
  RifaiCausale(tessarc, "APE", "Riporto Saldi Apertura");
  RifaiCausale(tessarc, "APEX", "Saldi Apertura Provvisori");
}

// --- What the form proposes and tells ---------------------------------------------------------

/// Both halves of a reverse-charge pair need a register.
void AvvisaCoppia(archives::ContestoArchivio& contesto) {
  const auto esiste = [&](const char* tipo) {
    return contesto.ambiente.Esiste(kChiave, "RegistriIva", {{"Tipo", tipo}});
  };
  const char* avviso = nullptr;
  if (Tipo(contesto) == "04" && !esiste("05")) {
    avviso =
        "Attenzione: bisogna anche creare un registro di tipo 05 per le registrazioni "
        "intracomunitarie su acquisti";
  } else if (Tipo(contesto) == "05" && !esiste("04")) {
    avviso =
        "Attenzione: bisogna anche creare un registro di tipo 04 per le registrazioni "
        "intracomunitarie su vendite";
  }
  if (avviso != nullptr) contesto.ambiente.Dialogo().Messaggio(avviso, Icona::Avviso);
}

bool HaMovimenti(archives::ContestoArchivio& contesto) {
  if (contesto.codicePrima.empty()) return false;
  return !contesto.ambiente.ArchivioDi(kChiave)
              .Recordset(
                  "SELECT TOP 1 Movimenti.Num FROM Articoli INNER JOIN Movimenti ON (Articoli.Anno "
                  "= Movimenti.Anno) AND (Articoli.NumDoc = Movimenti.NumDoc) WHERE " +
                  sql::Criterio("Articoli.Riva", "=", contesto.codicePrima))
              .Eof();
}

void Lasciato(archives::ContestoArchivio& contesto, const std::string& campo) {
  if (campo == "Tipo") {
    const Valore descrizione = contesto.ambiente.Cerca(kChiave, "TIPIregistriiva",
                                                       {{"cod", Tipo(contesto)}}, "DESCRIZIONE");
    if (!descrizione.Nullo()) contesto.scheda.Scrivi("Descrizione", descrizione);
  } else if (campo == "Conto" && HaMovimenti(contesto)) {
    contesto.ambiente.Dialogo().Messaggio(
        "ATTENZIONE : non si dovrebbe variare il conto se ci sono già fatture registrate!!!",
        Icona::Avviso);
  }
}

records::StatoCampo Stato(const archives::ContestoArchivio& contesto, const std::string& nome) {
  const TipoRegistro* tipo = TrovaTipoRegistro(Tipo(contesto));
  if (nome == kRiquadroCorrispettivi) {
    return {.visibile = tipo != nullptr && tipo->corrispettivi};
  }
  if (nome == "CodIva") return {.attivo = tipo != nullptr && tipo->codiceIvaProposto};
  return {};
}

records::CampoForma CampoConto(const char* nome, const char* didascalia, const char* riquadro) {
  return {.nome = nome,
          .didascalia = didascalia,
          .caratteri = 10,
          .genere = records::GenereCampo::Codice,
          .fonte = "conti",
          .elenco = *riquadro == '\0',
          .riquadro = riquadro};
}

std::vector<records::CampoForma> Campi() {
  const std::string riquadro(kRiquadroCorrispettivi);
  return {{.nome = "Tipo",
           .didascalia = "Tipo registro",
           .caratteri = 3,
           .genere = records::GenereCampo::Codice,
           .fonte = "tipiRegistro",
           .elenco = true,
           .maiuscole = true},
          CampoConto("Conto", "Conto IVA", ""),
          CampoConto("ContoCassa", "Conto cassa", riquadro.c_str()),
          CampoConto("ContoRicaviCorrisp", "Conto ricavi", riquadro.c_str()),
          {.nome = "CauGiroCorrisp",
           .didascalia = "Causale del giro",
           .caratteri = 6,
           .genere = records::GenereCampo::Codice,
           .fonte = "causaliTutte",
           .riquadro = riquadro},
          {.nome = "CodIva",
           .didascalia = "Codice IVA proposto",
           .caratteri = 6,
           .genere = records::GenereCampo::Codice,
           .fonte = "codiciIva",
           .riquadro = riquadro},
          {.nome = "RegMensileCorrisp",
           .didascalia = "Registrazione una volta al mese",
           .riquadro = riquadro}};
}

}  // namespace

archives::DescrizioneArchivio RegistriIva() {
  archives::DescrizioneArchivio d;
  d.finestra = "RegistriIva";
  d.titolo = "Archivio Registri IVA";
  d.tabella = "RegistriIva";
  d.titoloNuovo = "nuovo registro iva";
  d.titoloRecord = "registro iva ";
  d.caratteriCodice = 3;
  d.campi = Campi();
  d.riquadri = {{std::string(kRiquadroCorrispettivi), "Corrispettivi"}};
  d.lasciato = Lasciato;
  d.stato = Stato;
  d.controlli = {Obbligatorio("Tipo", "manca tipo registro iva"), ControllaTipoNoto,
                 Obbligatorio("Conto", "manca conto iva"), ControllaCorrispettivi};
  d.conScrittura = ScriviCausali;
  d.conEliminazione = [](archives::ContestoArchivio& contesto) {
    TogliCausali(contesto.ambiente, contesto.codicePrima);
  };
  d.dopoConferma = AvvisaCoppia;
  return d;
}

}  // namespace fenalto::vat
