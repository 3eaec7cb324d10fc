// Commands on the open company's data and settings.
#include "runner/Contesto.h"

namespace fenalto::copione {
namespace {

using RigaDati = std::vector<std::string>;

/// A row as it is written in a copione.
std::string Scritta(const RigaDati& riga) {
  std::string testo = "\"";
  for (std::size_t i = 0; i < riga.size(); ++i) {
    if (i > 0) testo += '|';
    for (const char c : riga[i]) {
      if (c == '"' || c == '\\' || c == '|') testo += '\\';
      testo += c == '\n' ? std::string("\\n") : std::string(1, c);
    }
  }
  return testo + "\"";
}

std::string Scritte(const std::vector<RigaDati>& righe) {
  constexpr std::size_t kMostrate = 50;
  std::string testo;
  for (std::size_t i = 0; i < righe.size() && i < kMostrate; ++i) {
    testo += (i > 0 ? " " : "") + Scritta(righe[i]);
  }
  if (righe.size() > kMostrate) testo += " ... (" + std::to_string(righe.size()) + " rows)";
  return testo.empty() ? "no row" : testo;
}

std::vector<RigaDati> Leggi(Archivio& archivio, const std::string& sql) {
  std::vector<RigaDati> righe;
  auto rs = archivio.Recordset(sql);
  const auto colonne = rs.Colonne().size();
  for (; !rs.Eof(); rs.MoveNext()) {
    RigaDati riga;
    for (std::size_t i = 0; i < colonne; ++i) riga.push_back(rs.Fields(i).Neutro());
    righe.push_back(std::move(riga));
  }
  return righe;
}

}  // namespace

void VerificaSql(Contesto& contesto, const Comando& comando) {
  std::vector<RigaDati> attese;
  for (std::size_t i = 3; i < comando.parole.size(); ++i) {
    attese.push_back(comando.parole[i].Valori());
  }
  std::vector<RigaDati> lette;
  try {
    lette = Leggi(contesto.Sessione().ArchivioDi(comando.Testo(0)), comando.Testo(1));
  } catch (const ErroreArchivio& errore) {
    throw Fallimento(std::string(errore.what()));
  }
  if (lette != attese) {
    throw Fallimento("expected " + Scritte(attese) + ", found " + Scritte(lette));
  }
}

void Esegui(Contesto& contesto, const Comando& comando) {
  try {
    contesto.Sessione().ArchivioDi(comando.Testo(0)).Esegui(comando.Testo(1));
  } catch (const ErroreArchivio& errore) {
    throw Fallimento(std::string(errore.what()));
  }
}

void Imposta(Contesto& contesto, const Comando& comando) {
  if (!contesto.Sessione().ScriviImpostazione({}, "config", comando.Testo(0), comando.Testo(1))) {
    throw Fallimento("the setting was not written: " + contesto.programma.dialoghi.Ultimo());
  }
}

void VerificaImpostazione(Contesto& contesto, const Comando& comando) {
  const auto valore = contesto.Sessione().LeggiImpostazione({}, "config", comando.Testo(0));
  if (valore != comando.Testo(1)) {
    throw Fallimento("the setting is \"" + valore + "\", not \"" + comando.Testo(1) + "\"");
  }
}

}  // namespace fenalto::copione
