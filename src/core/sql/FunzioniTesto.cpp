#include "core/sql/FunzioniTesto.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "core/values/Data.h"
#include "core/values/Testo.h"

namespace fenalto::sql::funzioni {

namespace {

bool IniziaCarattere(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

/// Byte at which the character after `n` others begins, or the end.
std::size_t ByteDopo(std::string_view testo, std::size_t n) {
  std::size_t i = 0;
  while (i < testo.size() && n > 0) {
    ++i;
    while (i < testo.size() && !IniziaCarattere(testo[i])) ++i;
    --n;
  }
  return i;
}

std::size_t Caratteri(std::string_view testo) {
  std::size_t n = 0;
  for (std::size_t i = 0; i < testo.size(); i = i + ByteDopo(testo.substr(i), 1)) ++n;
  return n;
}

std::size_t Lunghezza(const Cella& cella, const char* funzione) {
  if (cella.intero < 0) throw ErroreCalcolo(std::string(funzione) + ": lunghezza negativa");
  return static_cast<std::size_t>(cella.intero);
}

std::size_t Inizio(const Cella& cella, const char* funzione) {
  if (cella.intero < 1) {
    throw ErroreCalcolo(std::string(funzione) + ": l'inizio deve essere almeno 1");
  }
  return static_cast<std::size_t>(cella.intero) - 1;
}

std::string_view TogliSinistra(std::string_view t) {
  const std::size_t i = t.find_first_not_of(' ');
  return i == std::string_view::npos ? std::string_view{} : t.substr(i);
}

std::string_view TogliDestra(std::string_view t) {
  return t.substr(0, t.find_last_not_of(' ') + 1);
}

Data DataDi(const Cella& cella) {
  if (cella.intero < std::numeric_limits<std::int32_t>::min() ||
      cella.intero > std::numeric_limits<std::int32_t>::max()) {
    throw ErroreCalcolo("data fuori dagli anni da 1 a 9999");
  }
  return Data::DaGiorni(static_cast<std::int32_t>(cella.intero));
}

}  // namespace

Cella Mid(Argomenti a, Deposito&) {
  const std::string_view t = a[0].testo;
  const std::string_view resto = t.substr(ByteDopo(t, Inizio(a[1], "Mid")));
  if (a.size() < 3) return Cella::DiTesto(resto);
  return Cella::DiTesto(resto.substr(0, ByteDopo(resto, Lunghezza(a[2], "Mid"))));
}

Cella Left(Argomenti a, Deposito&) {
  const std::string_view t = a[0].testo;
  return Cella::DiTesto(t.substr(0, ByteDopo(t, Lunghezza(a[1], "Left"))));
}

Cella Right(Argomenti a, Deposito&) {
  const std::string_view t = a[0].testo;
  const std::size_t voluti = Lunghezza(a[1], "Right");
  const std::size_t tutti = Caratteri(t);
  return Cella::DiTesto(voluti >= tutti ? t : t.substr(ByteDopo(t, tutti - voluti)));
}

Cella Len(Argomenti a, Deposito&) {
  return Cella::DiIntero(static_cast<std::int64_t>(Caratteri(a[0].testo)));
}

Cella Trim(Argomenti a, Deposito&) {
  return Cella::DiTesto(TogliDestra(TogliSinistra(a[0].testo)));
}
Cella LTrim(Argomenti a, Deposito&) {
  return Cella::DiTesto(TogliSinistra(a[0].testo));
}
Cella RTrim(Argomenti a, Deposito&) {
  return Cella::DiTesto(TogliDestra(a[0].testo));
}
Cella UCase(Argomenti a, Deposito& d) {
  return Cella::DiTesto(d.Tieni(Maiuscolo(a[0].testo)));
}
Cella LCase(Argomenti a, Deposito& d) {
  return Cella::DiTesto(d.Tieni(Minuscolo(a[0].testo)));
}

Cella Str(Argomenti a, Deposito& d) {
  if (a[0].testo.starts_with('-')) return a[0];
  return Cella::DiTesto(d.Tieni(" " + std::string(a[0].testo)));
}

Cella Val(Argomenti a, Deposito&) {
  std::string cifre;
  for (char c : a[0].testo) {
    if (c == ' ' || c == '\t' || c == '\n' || c == '\r') continue;
    const bool segno = c == '-' || c == '+';
    if (!(c >= '0' && c <= '9') && c != '.' && !(segno && cifre.empty())) break;
    cifre += c;
  }
  const char* inizio = cifre.data() + (cifre.starts_with('+') ? 1 : 0);
  double valore = 0;
  std::from_chars(inizio, cifre.data() + cifre.size(), valore, std::chars_format::fixed);
  return Cella::DiReale(valore);
}

Cella Chr(Argomenti a, Deposito& d) {
  if (a[0].intero < 1 || a[0].intero > 255) {
    throw ErroreCalcolo("Chr: il codice va da 1 a 255");
  }
  const char c = static_cast<char>(static_cast<unsigned char>(a[0].intero));
  return Cella::DiTesto(d.Tieni(DaLatin1(std::string_view(&c, 1))));
}

Cella InStr(Argomenti a, Deposito&) {
  const bool conInizio = a.size() == 3;
  const std::size_t salta = conInizio ? Inizio(a[0], "InStr") : 0;
  const Cella& dove = a[conInizio ? 1 : 0];
  const Cella& cosa = a[conInizio ? 2 : 1];
  const std::size_t tutti = Caratteri(dove.testo);
  if (salta > tutti || (tutti == 0 && !cosa.testo.empty())) return Cella::DiIntero(0);
  const std::string piegato = SenzaMaiuscole(dove.testo);
  const std::size_t i = piegato.find(SenzaMaiuscole(cosa.testo), ByteDopo(piegato, salta));
  if (i == std::string::npos) return Cella::DiIntero(0);
  const std::size_t prima = Caratteri(std::string_view(piegato).substr(0, i));
  return Cella::DiIntero(static_cast<std::int64_t>(prima) + 1);
}

Cella InRicerca(Argomenti a, Deposito&) {
  return Cella::DiIntero(fenalto::InRicerca(a[0].testo, a[1].testo) ? 1 : 0);
}
Cella IniziaRicerca(Argomenti a, Deposito&) {
  return Cella::DiIntero(fenalto::IniziaRicerca(a[0].testo, a[1].testo) ? 1 : 0);
}

Cella Anno(Argomenti a, Deposito&) {
  return Cella::DiIntero(DataDi(a[0]).Anno());
}
Cella Mese(Argomenti a, Deposito&) {
  return Cella::DiIntero(DataDi(a[0]).Mese());
}
Cella Giorno(Argomenti a, Deposito&) {
  return Cella::DiIntero(DataDi(a[0]).Giorno());
}
Cella TestoData(Argomenti a, Deposito& d) {
  return Cella::DiTesto(d.Tieni(DataDi(a[0]).Testo()));
}

}  // namespace fenalto::sql::funzioni
