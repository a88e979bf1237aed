// Our golden files, read by programs that others have written. Where our files part from the public formats on
// purpose, a test names the difference: it fails when the difference goes.
const test = require('node:test')
const assert = require('node:assert')
const fs = require('node:fs')
const path = require('node:path')
const { ADIF } = require('tcadif')
const { AdifParser } = require('adif-parser-ts')
const { cabrilloToQSON } = require('@ham2k/lib-qson-cabrillo')

const gold = process.env.SORVIK_GULD
/** One character for one byte, so that lengths in characters are lengths in bytes. */
const read = (name) => fs.readFileSync(path.join(gold, name)).toString('latin1')

const adif = read('nac.adi')
const records = adif.split('\r\n').filter((line) => line.startsWith('<CALL:'))

test('ADIF: every value has the length that its tag tells', () => {
  const { records: found } = AdifParser.parseAdi(adif)
  assert.equal(found.length, 4)
  const [odd, full, long, duplicate] = found
  assert.deepEqual(full, {
    call: 'SM5ABC', qso_date: '20261201', time_on: '180005', band: '2M', mode: 'CW', freq: '144,050,00',
    rst_rcvd: '599', rst_sent: '599', qth: 'Gävle', name: 'Åsa', ituz: '18', cqz: '14', dxcc: 'SM', adi: '284',
    award: 'JO89', points: '500', land: 'Sverige', multipels: 'JO89WJ', commens: 'QRP <5 W>'
  })
  assert.equal(odd.call.length, 2)
  assert.equal(odd.band, '24M')
  assert.equal(long.call, 'OZ1ÅÄÖ/LÅNGT;NAMN')
  assert.equal(duplicate.time_on, '1820')
  for (const record of found) assert.equal(Object.keys(record).length, 19)
})

test('ADIF: the header ends where it should', () => {
  const { header } = AdifParser.parseAdi(adif)
  assert.match(header.text, /^ADIF Export from Sorvik/)
})

/** What the strict reader says of one record. */
function strict (record) {
  try {
    return ADIF.parse('Sorvik<EOH>\n' + record).toObject().qsos[0]
  } catch (error) {
    return `${error.field}: ${error.message}`
  }
}
const without = (record, ...tags) =>
  tags.reduce((text, tag) => text.replace(new RegExp(`<${tag}:\\d+>[^<]*`), ''), record)

test('ADIF: a plain record passes the strict reader', () => {
  assert.deepEqual({ ...strict(records[3]) }, {
    BAND: '2M', CALL: 'SM5ABC', MODE: 'CW', QSO_DATE: '20261201', RST_RCVD: '599', RST_SENT: '599', TIME_ON: '1820'
  })
})

test('ADIF: our DXCC is the short form of the country, theirs its number', () => {
  assert.equal(strict(records[1]), 'DXCC: field enumeration check failed')
})

test('ADIF: our FREQ is the text of the form, theirs a number in MHz', () => {
  assert.equal(strict(without(records[1], 'DXCC')), 'FREQ: data type check failed')
})

test('ADIF: our letters are those of the 8-bit code page, theirs of ASCII', () => {
  assert.equal(strict(without(records[1], 'DXCC', 'FREQ')), 'NAME: data type check failed')
  assert.equal(strict(records[2]), 'CALL: data type check failed')
})

test('ADIF: with those three gone the strict reader takes the record', () => {
  const read = strict(without(records[1], 'DXCC', 'FREQ', 'NAME', 'QTH'))
  assert.equal(read.CALL, 'SM5ABC')
  assert.equal(read.TIME_ON, '180005')
  assert.equal(read.ITUZ, '18')
})

test('ADIF: 24 CM becomes 24M, which is no band', () => {
  assert.equal(strict(records[0]), 'BAND: field enumeration check failed')
})

const summary = (log) => cabrilloToQSON(log).qsos.map(({ freq, mode, start, our, their }) =>
  [freq, mode, start, our.call, our.sent.rst, our.sent.exchange, their.call, their.sent.rst, their.sent.exchange])

test('Cabrillo: every contact of a SAC log is read', () => {
  assert.deepEqual(summary(read('SK7MW261201_.log')), [
    [14000, 'CW', '2026-09-19T12:00:00Z', 'SK7MW', '599', '001', 'K1ABC', '599', '15'],
    [28000, 'RTTY', '2026-09-19T12:05:00Z', 'SK7MW', '599', '002', 'JA1XYZ/P-LONG', '579', '0007'],
    [28000, 'SSB', '2026-09-20T00:10:00Z', 'SK7MW', '59', '1000', 'DL1AA', '59', '']
  ])
})

test('Cabrillo: the header of a SAC log is read', () => {
  const { rawHeaders } = cabrilloToQSON(read('SK7MW261201_.log'))
  assert.equal(rawHeaders.version, '2.0')
  assert.equal(rawHeaders.callsign, 'SK7MW')
  assert.equal(rawHeaders.category, 'SINGLE-OP ALL HIGH')
  assert.equal(rawHeaders.claimedScore, '21')
  assert.equal(rawHeaders.address.length, 3)
  assert.ok(!rawHeaders.contest, 'the contest has no name')
})

test('Cabrillo: a Månadstest has number and locator, two columns where a general reader knows one', () => {
  const [, contact] = summary(read('SK7MW_MT2611_PH.log'))
  assert.deepEqual(contact.slice(0, 6), [3500, 'CW', '2026-11-15T14:00:00Z', 'SK7MW', '599', '02'])
  assert.equal(contact[6], 'JO65MR', 'the own locator is taken for the call')
})
