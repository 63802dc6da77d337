/** Reading barcodes with the device's camera. Browsers allow it on https pages alone. */

import { canRead, makeReader } from './barcode-reader.js';
import { meant, Readings } from './readings.js';

/** Time for the page between two frames, in milliseconds. */
const REST = 40;

const WANTED = {
  audio: false,
  video: { facingMode: { ideal: 'environment' }, width: { ideal: 1280 }, height: { ideal: 720 } },
};

/** Whether barcodes can be read with this device's camera. */
export async function canScan() {
  return globalThis.isSecureContext && typeof navigator.mediaDevices?.getUserMedia === 'function' && canRead();
}

/** Keeps the screen on until the signal aborts, where the browser can. A page out of sight loses the lock. */
function keepScreenOn(signal) {
  let lock = null;
  const request = async () => {
    if (document.visibilityState !== 'visible') return;
    try {
      lock = await navigator.wakeLock?.request('screen');
      if (signal.aborted) await lock?.release();
    } catch {
      lock = null; // refused, for an empty battery for example
    }
  };
  document.addEventListener('visibilitychange', request, { signal });
  signal.addEventListener('abort', () => lock?.release(), { once: true });
  request();
}

function stop(stream) {
  for (const track of stream.getTracks()) track.stop();
}

/** Resolves when the video has a frame, or after the signal has aborted. */
function firstFrame(video, signal) {
  return new Promise((resolve) => {
    video.addEventListener('loadeddata', resolve, { once: true, signal });
    signal.addEventListener('abort', resolve, { once: true });
  });
}

const rest = () => new Promise((resolve) => setTimeout(resolve, REST));

async function show(video, stream, signal) {
  const shown = firstFrame(video, signal);
  video.srcObject = stream;
  await video.play().catch(() => {}); // its frames come all the same, or the wait for the first ends by the signal
  await shown;
}

async function readFrames(video, read, { readings, onCode, signal }) {
  while (!signal.aborted) {
    const codes = await read(video);
    if (signal.aborted) return;
    const text = meant(codes);
    if (readings.take(text, performance.now())) onCode(text);
    await rest();
  }
}

/**
 * Shows the rear camera in `video` and calls `onCode` with each barcode that it reads, until `signal` aborts; then resolves, with
 * camera and screen lock released. A barcode counts when two readings are equal, and again when it was out of sight for 2.5 seconds;
 * `inSight` is one that has counted and is still before the camera.
 * Rejects when the camera is refused or missing (NotAllowedError, NotFoundError, NotReadableError), when it is unplugged
 * (NotReadableError), and when the reader cannot be loaded.
 */
export async function scan(video, onCode, signal, inSight = '') {
  if (signal.aborted) return;
  const own = new AbortController();
  const ended = own.signal;
  signal.addEventListener('abort', () => own.abort(), { once: true, signal: ended });
  let stream = null;
  let lost = null;
  try {
    stream = await navigator.mediaDevices.getUserMedia(WANTED);
    if (ended.aborted) return;
    stream.getVideoTracks()[0].addEventListener('ended', () => {
      lost = new DOMException('the camera is gone', 'NotReadableError');
      own.abort();
    });
    keepScreenOn(ended);
    const [read] = await Promise.all([makeReader(), show(video, stream, ended)]);
    const readings = new Readings(inSight, performance.now());
    await readFrames(video, read, { readings, onCode, signal: ended });
    if (lost !== null) throw lost;
  } finally {
    own.abort();
    if (stream !== null) stop(stream);
    if (video.srcObject === stream) video.srcObject = null; // unless the next scan shows its own
  }
}
