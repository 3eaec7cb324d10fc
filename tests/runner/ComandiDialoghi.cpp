// Commands that queue answers and check the dialogs shown.
#include <map>

#include "runner/Contesto.h"

namespace fenalto::copione {

void Rispondi(Contesto& contesto, const Comando& comando) {
  static const std::map<std::string, Risposta> kRisposte = {{"si", Risposta::Si},
                                                            {"no", Risposta::No},
                                                            {"ok", Risposta::Ok},
                                                            {"annulla", Risposta::Annulla}};
  RispostaAttesa attesa;
  attesa.luogo = comando.Luogo();
  if (comando.Testo(0) == "testo") {
    attesa.valore = comando.Testo(1);
    attesa.contiene = comando.Testo(2);
  } else {
    attesa.risposta = kRisposte.at(comando.Testo(0));
    attesa.contiene = comando.Testo(1);
  }
  contesto.programma.dialoghi.Accoda(std::move(attesa));
}

void Stampa(Contesto& contesto, const Comando& comando) {
  static const std::map<std::string, Destinazione> kDestinazioni = {{"testo", Destinazione::Testo},
                                                                    {"pdf", Destinazione::Pdf},
                                                                    {"xlsx", Destinazione::Xlsx},
                                                                    {"csv", Destinazione::Csv}};
  UscitaAttesa attesa{comando.Luogo(), std::nullopt};
  if (comando.Testo(0) != "annulla") {
    attesa.scelta =
        SceltaUscita{kDestinazioni.at(comando.Testo(0)), contesto.FileDi(comando.Testo(1))};
  }
  contesto.programma.dialoghi.Accoda(std::move(attesa));
}

void FileScelto(Contesto& contesto, const Comando& comando) {
  FileAtteso atteso{comando.Luogo(), {}};
  if (!comando.Testo(0).empty()) atteso.file = contesto.FileDi(comando.Testo(0));
  contesto.programma.dialoghi.Accoda(std::move(atteso));
}

void VerificaMessaggio(Contesto& contesto, const Comando& comando) {
  const auto testo = contesto.programma.dialoghi.PrendiPiuVecchio();
  if (!testo) {
    throw Fallimento("no dialog is left to check for \"" + comando.Testo(0) + "\"");
  }
  if (testo->find(comando.Testo(0)) == std::string::npos) {
    throw Fallimento("the dialog \"" + *testo + "\" does not contain \"" + comando.Testo(0) + "\"");
  }
}

void VerificaNessunMessaggio(Contesto& contesto, const Comando&) {
  std::string restano;
  for (const auto& testo : contesto.programma.dialoghi.DaVerificare()) {
    restano += (restano.empty() ? "\"" : ", \"") + testo + "\"";
  }
  if (!restano.empty()) throw Fallimento("dialogs not checked: " + restano);
}

}  // namespace fenalto::copione
