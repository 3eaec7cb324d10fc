// What the commands of one copione work on, and the table of the commands.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

#include "runner/Fallimento.h"
#include "runner/Grammatica.h"
#include "runner/Programma.h"
#include "runner/Ricerca.h"
#include "runner/Scena.h"

namespace fenalto::copione {

struct Contesto {
  Programma& programma;
  Scena& scena;
  /// Where relative names of files are read and written.
  std::filesystem::path uscita;
  /// When the command under way has taken too long.
  std::chrono::steady_clock::time_point scadenza;
  /// Dialogs shown before the command under way.
  int dialoghiPrima = 0;

  [[nodiscard]] Ricerca Cerca() { return Ricerca(scena.Corrente()); }
  [[nodiscard]] screens::FinestraPrincipale& Principale() { return programma.App().Principale(); }
  [[nodiscard]] Ambiente& Sessione() { return programma.App().Sessione(); }
  /// A dialog came up during the command under way: the program has answered it in its way.
  [[nodiscard]] bool HaDetto() const { return programma.dialoghi.Mostrati() > dialoghiPrima; }
  [[nodiscard]] std::filesystem::path FileDi(const std::string& nome) const {
    return uscita / std::filesystem::path(nome);
  }
  /// Lets everything under way finish; fails past the command's time.
  void Attendi();
};

/// Whether a command acts on the program or only looks at it: after a failed action the copione is
/// over.
enum class Genere { Azione, Verifica };

struct Voce {
  Genere genere;
  std::function<void(Contesto&, const Comando&)> esegui;
};

/// The command of that name; null for one that only the grammar knows.
const Voce* VoceDiComando(const std::string& nome);

// Fields.
void Scrivi(Contesto& contesto, const Comando& comando);
void DigitaIn(Contesto& contesto, const Comando& comando);
void PremiTasto(Contesto& contesto, const Comando& comando);
void Spunta(Contesto& contesto, const Comando& comando);
void Togli(Contesto& contesto, const Comando& comando);
void ClicSu(Contesto& contesto, const Comando& comando);
void Pagina(Contesto& contesto, const Comando& comando);

// Lists.
void Scegli(Contesto& contesto, const Comando& comando);
void Riga(Contesto& contesto, const Comando& comando);
void DoppioClicRiga(Contesto& contesto, const Comando& comando);
void VerificaRighe(Contesto& contesto, const Comando& comando);
void VerificaCella(Contesto& contesto, const Comando& comando);

// Windows.
void Apri(Contesto& contesto, const Comando& comando);
void Rifiuta(Contesto& contesto, const Comando& comando);
void Menu(Contesto& contesto, const Comando& comando);
void PassaA(Contesto& contesto, const Comando& comando);
void VerificaAperta(Contesto& contesto, const Comando& comando);
void VerificaChiusa(Contesto& contesto, const Comando& comando);
void Chiudi(Contesto& contesto, const Comando& comando);
void Anno(Contesto& contesto, const Comando& comando);
void VerificaTitolo(Contesto& contesto, const Comando& comando);
void Foto(Contesto& contesto, const Comando& comando);

// Controls looked at.
void VerificaTesto(Contesto& contesto, const Comando& comando);
void VerificaAttivo(Contesto& contesto, const Comando& comando);
void VerificaSpento(Contesto& contesto, const Comando& comando);
void VerificaVisibile(Contesto& contesto, const Comando& comando);
void VerificaNascosto(Contesto& contesto, const Comando& comando);

// Dialogs.
void Rispondi(Contesto& contesto, const Comando& comando);
void Stampa(Contesto& contesto, const Comando& comando);
void FileScelto(Contesto& contesto, const Comando& comando);
void VerificaMessaggio(Contesto& contesto, const Comando& comando);
void VerificaNessunMessaggio(Contesto& contesto, const Comando& comando);

// Data and files.
void VerificaSql(Contesto& contesto, const Comando& comando);
void Esegui(Contesto& contesto, const Comando& comando);
void Imposta(Contesto& contesto, const Comando& comando);
void VerificaImpostazione(Contesto& contesto, const Comando& comando);
void VerificaContiene(Contesto& contesto, const Comando& comando);
void VerificaNonContiene(Contesto& contesto, const Comando& comando);
void VerificaUguale(Contesto& contesto, const Comando& comando);

}  // namespace fenalto::copione
