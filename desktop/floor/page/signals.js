// What a counter hears and feels without looking.

let audio = null;

function tone(frequency, seconds) {
  try {
    audio ??= new AudioContext();
    audio.resume();
    const source = audio.createOscillator();
    const volume = audio.createGain();
    source.type = 'square';
    source.frequency.value = frequency;
    volume.gain.value = 0.2;
    source.connect(volume).connect(audio.destination);
    source.start();
    source.stop(audio.currentTime + seconds);
  } catch {
    // A device without sound: the colour says it too.
  }
}

/** A barcode that no line has, or a figure that the desk does not take. */
export function alarm() {
  tone(180, 0.5);
  navigator.vibrate?.([200, 100, 200]);
}

export function confirmation() {
  tone(880, 0.07);
  navigator.vibrate?.(30);
}
