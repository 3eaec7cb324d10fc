// What the open document looks like: title, fields and frames as its type has them.
#include <algorithm>

#include "core/session/ImpostazioneAttiva.h"
#include "documents/entry/FattureCliInterno.h"

namespace fenalto::documents {
namespace {

bool Uno(const std::string& nome, std::initializer_list<std::string_view> nomi) {
  return std::ranges::any_of(nomi, [&](std::string_view n) { return UgualeTesto(n, nome); });
}

}  // namespace

FattureCli::Stato FattureCli::StatoCorrente() const {
  return interno_->documento.StatoCorrente(interno_->righe.InRiga());
}

bool FattureCli::Nuova() const {
  return interno_->documento.Nuovo();
}

bool FattureCli::SolaLettura() const {
  return interno_->documento.SolaLettura();
}

std::string FattureCli::MotivoSolaLettura() const {
  return interno_->documento.Motivo();
}

bool FattureCli::Modificata() const {
  const Interno& io = *interno_;
  return io.documento.Modificabile() && (io.righe.Modificate() || io.testa.Modificata() ||
                                         io.allegati.InAttesa() || io.righe.Digitando());
}

bool FattureCli::Interno::DaFatturare() const {
  return tipo.Fatturazione() || (tipo.Bolla() && B("Fatturo"));
}

std::string FattureCli::Interno::EtichettaMagazzino() const {
  return Senso() == "C" ? "Magazzino da caricare" : "Magazzino da scaricare";
}

std::string FattureCli::Interno::NomeDocumento(std::int64_t numero) const {
  return (tipo.tipo.empty() ? tipo.descrizione : tipo.tipo) + " n. " + std::to_string(numero) +
         " del " + D("Dt").Testo();
}

std::string FattureCli::Titolo() const {
  const Interno& io = *interno_;
  if (!io.documento.Aperto()) return {};
  return io.documento.Nuovo() ? io.titoloNuovo : io.NomeDocumento(io.numeroRecord);
}

std::vector<std::string> FattureCli::InformazioniTipo() const {
  const TipoDocumento& tipo = interno_->tipo;
  Ambiente& ambiente = interno_->ambiente;
  const auto nome = [&](const char* tabella, const std::string& codice) {
    return codice + " " +
           NzStr(ambiente.Cerca("tessarc", tabella, {{"Cod", codice}}, "Descrizione"));
  };
  std::vector<std::string> linee = {tipo.cod + " " + tipo.descrizione};
  if (tipo.causaleMag.empty()) {
    linee.emplace_back("- nessuna movimentazione magazzino");
  } else {
    linee.push_back("- causale movim. magazzino " + nome("CausaliMag", tipo.causaleMag));
    if (!tipo.mag.empty()) linee.push_back("- magazzino " + nome("Magazzini", tipo.mag));
  }
  if (tipo.prezziIvati) linee.emplace_back("- con esposizione dei prezzi ivati e scorporo");
  if (!tipo.tipoDocScaricoDB.empty()) {
    linee.push_back("- scarica i componenti della distinta base con un documento di tipo " +
                    nome("TipiFattureCli", tipo.tipoDocScaricoDB));
  }
  if (!tipo.tipoDocTrasferimento.empty()) {
    linee.push_back("- carica l'altro magazzino con un documento di tipo " +
                    nome("TipiFattureCli", tipo.tipoDocTrasferimento));
  }
  if (tipo.riva.empty()) return linee;
  linee.push_back("- fatture contabilizzate sul registro iva " + nome("RegistriIva", tipo.riva));
  std::string altri;
  for (const TipoDocumento& altro : interno_->tipi) {
    if (UgualeTesto(altro.riva, tipo.riva) && !UgualeTesto(altro.cod, tipo.cod)) {
      altri.append(altri.empty() ? "" : ", ").append(altro.cod);
    }
  }
  if (!altri.empty()) {
    linee.push_back("- Altri tipi documento che contabilizzano le fatture sul registro iva " +
                    tipo.riva + ": " + altri);
  }
  return linee;
}

// --- Fields --------------------------------------------------------------------------------------

records::StatoCampo FattureCli::StatoTesta(const std::string& nome) const {
  const Interno& io = *interno_;
  const TipoDocumento& tipo = io.tipo;
  records::StatoCampo stato;
  const bool trasporto = tipo.Bolla() || tipo.FattAcc();
  if (Uno(nome, {"RiquadroRitenuta", "RiquadroPagamento", "RiquadroTotali"})) {
    stato.visibile = io.documento.Aperto() && io.DaFatturare();
  } else if (Uno(nome, {"RiquadroTrasporto"})) {
    stato.visibile = trasporto;
  } else if (Uno(nome, {"RiquadroDestinazione"})) {
    stato.visibile = trasporto || tipo.Fattura();
  } else if (Uno(nome, {"RiquadroCarico"})) {
    stato.visibile = io.Senso() == "C" || tipo.Movimento();
  } else if (Uno(nome, {"PaginaDati"})) {
    stato.didascalia = trasporto ? "Dati DDT" : "Altri Dati";
  } else if (Uno(nome, {"NumDoc"})) {
    stato.attivo = io.documento.Nuovo();
  } else if (Uno(nome, {"CliFor"})) {
    stato.fonte = tipo.cfp == "F" ? "fornitori" : "clienti";
    stato.didascalia = tipo.cfp == "F" ? "Fornitore" : "Cliente";
  } else if (Uno(nome, {"Mag"})) {
    stato.visibile = !tipo.causaleMag.empty();
    stato.didascalia = io.EtichettaMagazzino();
  } else if (Uno(nome, {kMagDest})) {
    stato.visibile = !tipo.tipoDocTrasferimento.empty();
    stato.didascalia = "Magazzino di destinazione";
  } else if (Uno(nome, {"ScontoCassa"})) {
    stato.attivo = !tipo.prezziIvati;
  } else if (Uno(nome, {"Fatturo", "EscludoFatAuto", "Fattura"})) {
    stato.visibile = tipo.Bolla();
    stato.attivo = nome != "Fattura";
  } else if (Uno(nome, {"Ep", "DtIncasso", "NVarAnPrec"})) {
    stato.visibile = tipo.Fatturazione();
  } else if (Uno(nome, {"Agente"})) {
    stato.visibile = tipo.cfp == "C";
  }
  return stato;
}

records::StatoCampo FattureCli::StatoRiga(const std::string& nome) const {
  const Interno& io = *interno_;
  const TipoDocumento& tipo = io.tipo;
  records::StatoCampo stato;
  if (Uno(nome, {"CodPrCli"})) {
    stato.visibile = tipo.cfp == "C" && !tipo.Movimento();
  } else if (Uno(nome, {"Campo1", "Campo2"})) {
    const std::string& scritta = UgualeTesto(nome, "Campo1") ? tipo.campo1 : tipo.campo2;
    stato.visibile = !scritta.empty() && (tipo.Bolla() || tipo.FattAcc());
    stato.didascalia = scritta;
  } else if (Uno(nome, {"QuantitaA", "PrezzoA"})) {
    stato.visibile = tipo.cfp == "F";
  } else if (Uno(nome, {"Lottox", "DtScad"})) {
    stato.visibile = io.Senso() == "C";
    if (UgualeTesto(nome, "Lottox")) {
      const std::string scritta = io.ambiente.Config("LottoN");
      stato.didascalia = scritta.empty() ? "Lotto N." : scritta;
    }
  } else if (Uno(nome, {"Costo"})) {
    stato.visibile = io.Livello();
  } else if (Uno(nome, {"Prov"})) {
    stato.visibile = tipo.cfp == "C";
  } else if (Uno(nome, {"Importo"})) {
    stato.attivo = false;
  }
  return stato;
}

// --- Options -------------------------------------------------------------------------------------

bool FattureCli::Opzione(std::string_view chiave) const {
  return ImpostazioneAttiva(interno_->ambiente, chiave);
}

void FattureCli::Opzione(std::string_view chiave, bool valore) {
  interno_->ambiente.ScriviImpostazione({}, "config", chiave, valore ? "1" : "0");
}

// --- Attachments ---------------------------------------------------------------------------------

const std::vector<Allegato>& FattureCli::Allegati() const {
  return interno_->allegati.Elenco();
}

Esito<bool> FattureCli::AggiungiAllegato(const std::filesystem::path& file) {
  Interno& io = *interno_;
  if (!io.documento.Aperto()) return Errore{"aprire prima un documento"};
  if (io.documento.SolaLettura()) return Errore{"il documento si può solo consultare"};
  return io.allegati.Aggiungi(file);
}

Esito<bool> FattureCli::TogliAllegato(std::size_t indice) {
  Interno& io = *interno_;
  if (!io.documento.Aperto()) return Errore{"aprire prima un documento"};
  if (io.documento.SolaLettura()) return Errore{"il documento si può solo consultare"};
  return io.allegati.Togli(indice);
}

}  // namespace fenalto::documents
