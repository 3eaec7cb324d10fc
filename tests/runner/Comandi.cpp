// The table of the commands that run.
#include <QThread>
#include <map>

#include "runner/Contesto.h"
#include "runner/Eventi.h"

namespace fenalto::copione {
namespace {

void Oggi(Contesto& contesto, const Comando& comando) {
  contesto.programma.orologio.Ferma(*GiornoDi(comando.Testo(0)));
}

void Ditta(Contesto& contesto, const Comando& comando) {
  contesto.programma.ApriDitta(comando.Testo(0), comando.parole.size() > 2 ? comando.Numero(2) : 0);
}

void Utente(Contesto& contesto, const Comando& comando) {
  contesto.programma.Accedi(comando.Testo(0), comando.Testo(1));
}

void Riavvia(Contesto& contesto, const Comando&) {
  contesto.programma.Riavvia();
}

void Interrompi(Contesto& contesto, const Comando&) {
  contesto.programma.Interrompi();
}

void Termina(Contesto& contesto, const Comando&) {
  contesto.programma.Termina();
}

void Ignora(Contesto& contesto, const Comando&) {
  contesto.programma.dialoghi.Ignora();
}

void Attesa(Contesto& contesto, const Comando& comando) {
  const auto fine = std::chrono::steady_clock::now() + std::chrono::milliseconds(comando.Numero(0));
  while (std::chrono::steady_clock::now() < fine) {
    SmaltisciEventi();
    QThread::msleep(2);
  }
  contesto.Attendi();
}

constexpr auto kAzione = Genere::Azione;
constexpr auto kVerifica = Genere::Verifica;

const std::map<std::string, Voce>& Tavola() {
  static const std::map<std::string, Voce> kTavola = {
      {"oggi", {kAzione, Oggi}},
      {"ditta", {kAzione, Ditta}},
      {"anno", {kAzione, Anno}},
      {"utente", {kAzione, Utente}},
      {"riavvia", {kAzione, Riavvia}},
      {"interrompi", {kAzione, Interrompi}},
      {"termina", {kVerifica, Termina}},
      {"apri", {kAzione, Apri}},
      {"menu", {kAzione, Menu}},
      {"rifiuta", {kVerifica, Rifiuta}},
      {"finestra", {kAzione, PassaA}},
      {"aperta", {kVerifica, VerificaAperta}},
      {"chiusa", {kVerifica, VerificaChiusa}},
      {"chiudi", {kAzione, Chiudi}},
      {"scrivi", {kAzione, Scrivi}},
      {"digita", {kAzione, DigitaIn}},
      {"tasto", {kAzione, PremiTasto}},
      {"scegli", {kAzione, Scegli}},
      {"spunta", {kAzione, Spunta}},
      {"togli", {kAzione, Togli}},
      {"clic", {kAzione, ClicSu}},
      {"pagina", {kAzione, Pagina}},
      {"riga", {kAzione, Riga}},
      {"doppioclic", {kAzione, DoppioClicRiga}},
      {"rispondi", {kAzione, Rispondi}},
      {"stampa", {kAzione, Stampa}},
      {"file", {kAzione, FileScelto}},
      {"messaggio", {kVerifica, VerificaMessaggio}},
      {"nessunmessaggio", {kVerifica, VerificaNessunMessaggio}},
      {"ignora", {kAzione, Ignora}},
      {"vale", {kVerifica, VerificaTesto}},
      {"attivo", {kVerifica, VerificaAttivo}},
      {"spento", {kVerifica, VerificaSpento}},
      {"visibile", {kVerifica, VerificaVisibile}},
      {"nascosto", {kVerifica, VerificaNascosto}},
      {"titolo", {kVerifica, VerificaTitolo}},
      {"righe", {kVerifica, VerificaRighe}},
      {"cella", {kVerifica, VerificaCella}},
      {"sql", {kVerifica, VerificaSql}},
      {"esegui", {kAzione, Esegui}},
      {"imposta", {kAzione, Imposta}},
      {"impostazione", {kVerifica, VerificaImpostazione}},
      {"contiene", {kVerifica, VerificaContiene}},
      {"noncontiene", {kVerifica, VerificaNonContiene}},
      {"uguale", {kVerifica, VerificaUguale}},
      {"foto", {kAzione, Foto}},
      {"attesa", {kAzione, Attesa}},
  };
  return kTavola;
}

}  // namespace

const Voce* VoceDiComando(const std::string& nome) {
  const auto voce = Tavola().find(nome);
  return voce == Tavola().end() ? nullptr : &voce->second;
}

void Contesto::Attendi() {
  if (!Riposa(programma, scadenza)) {
    throw Fallimento(std::string("the program did not come to rest in time"));
  }
}

}  // namespace fenalto::copione
